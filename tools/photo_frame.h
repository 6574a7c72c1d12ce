#pragma once

// A picture on a screen: a room, a guest, a document.

#include <QFrame>
#include <QPixmap>
#include <QString>
#include <QStringView>

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

// Shows a picture from the server: downloads it to the program's folder, shows it and deletes the local
// copy. False, with the frame empty, when it can't be downloaded. (Waits on the server.)
bool SetRemotePhoto(PhotoFrame* frame, QStringView remoteName);

} // namespace hotel
