#include "tools/aids/photo_frame.h"

#include <QImageReader>
#include <QPainter>
#include <QTemporaryFile>

#include "link/serv_api.h"
#include "platform/work_folder.h"
#include "record/literals.h"
#include "screen/messages.h"

namespace hotel {

namespace {

bool ShowDownloaded(PhotoFrame* frame, const QString& remoteName) {
    // A name of its own, so that no file of the program is overwritten whatever the picture is called.
    QTemporaryFile copy(PictureFolder() + u"/photo_XXXXXX.jpg"_s);
    if (!copy.open())
        return false;
    copy.close();
    if (DbDownloadFile(remoteName, copy.fileName()) != 0)
        return false;
    SetPhoto(frame, copy.fileName());
    return true;
}

} // namespace

PhotoFrame::PhotoFrame(const QString& name, const QString& words, QWidget* parent)
    : QFrame(parent), words_(words) {
    setObjectName(name);
    setFrameStyle(QFrame::StyledPanel);
    setMinimumSize(200, 150);
}

void PhotoFrame::setPhoto(const QPixmap& photo) {
    photo_ = photo;
    update();
}

void PhotoFrame::paintEvent(QPaintEvent* event) {
    QFrame::paintEvent(event);
    QPainter painter(this);
    const QRect inside = contentsRect().adjusted(3, 3, -3, -3);
    if (photo_.isNull()) {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(inside, Qt::AlignCenter, words_);
        return;
    }
    QRect place({}, photo_.size().scaled(inside.size(), Qt::KeepAspectRatio));
    place.moveCenter(inside.center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(place, photo_);
}

bool SetPhoto(PhotoFrame* frame, const QString& path) {
    if (path.isEmpty()) {
        frame->setPhoto({});
        return false;
    }
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QImage image = reader.read();
    frame->setPhoto(QPixmap::fromImage(image));
    return !image.isNull();
}

void ShowListedPhoto(PhotoFrame* frame, const TextTable& list, int row, QStringView column,
                     QString (*fileOf)(QStringView name)) {
    frame->setPhoto({});
    const QString picture = row == 0 ? QString() : list.text(row, column);
    if (!picture.isEmpty() && !ShowDownloaded(frame, fileOf(picture)))
        MsgBox(u"照片文件读取失败，若需要查看，请再次点击本行！"_s, u"提示"_s);
}

} // namespace hotel
