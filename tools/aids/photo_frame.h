#pragma once

// A picture on a screen: a room, a guest, a document.

#include <QFrame>
#include <QPixmap>
#include <QString>
#include <QStringView>

#include "record/text_table.h"

namespace hotel {

// Shows a picture fitted into the frame, its aspect kept, whatever size the frame takes; without one it
// shows its words.
class PhotoFrame : public QFrame {
    Q_OBJECT

public:
    PhotoFrame(const QString& name, const QString& words, QWidget* parent = nullptr);

    // The picture in its own size; null when there is none.
    const QPixmap& photo() const { return photo_; }
    void setPhoto(const QPixmap& photo);

    QSize sizeHint() const override { return {280, 210}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap photo_;
    QString words_;
};

// Shows the picture in a file of this workstation, by its content whatever the file is called. A file
// that is missing or no picture empties the frame and gives false.
bool SetPhoto(PhotoFrame* frame, const QString& path);

// Shows the picture that a row of a list names in a column: downloads it to the program's folder, shows
// it and deletes the local copy. `fileOf` gives the server's file of a name. The user is told when it
// can't be downloaded; row 0 and a row without a picture empty the frame. (Waits on the server.)
void ShowListedPhoto(PhotoFrame* frame, const TextTable& list, int row, QStringView column,
                     QString (*fileOf)(QStringView name));

} // namespace hotel
