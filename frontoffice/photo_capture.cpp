#include "frontoffice/photo_capture.h"

#include "frontoffice/PhotoFrm.h"

#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "link/serv_api.h"
#include "platform/camera.h"
#include "record/literals.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "session/parameters.h"

namespace hotel {

namespace {

// Documents of guests: nobody else may look at the folder, and it goes with the program.
QString PhotographFile(QString fileName) {
    static const QTemporaryDir folder;
    static const QRegularExpression notInNames(uR"([\\/:*?"<>|\x00-\x1F])"_s);
    return folder.filePath(fileName.replace(notInNames, u"_"_s));
}

bool TakeCopy(const QString& chosen, const QString& file) {
    if (QFileInfo(chosen) == QFileInfo(file))
        return true;
    QFile::remove(file);
    return QFile::copy(chosen, file);
}

// Makes the picture small enough to come back from the server. A face on a screen needs no more.
bool FitForServer(const QString& file) {
    constexpr int kSides[] = {1600, 1200, 800}; // pixels
    constexpr int kQuality = 85;
    if (QFileInfo(file).size() < kFileLimit)
        return true;
    const QImage picture(file);
    for (const int side : kSides) {
        if (!picture.isNull() &&
            picture.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                .save(file, "JPG", kQuality) &&
            QFileInfo(file).size() < kFileLimit)
            return true;
    }
    QFile::remove(file);
    MsgBox(u"照片文件太大，无法缩小，请选择小于1000000字节的照片！"_s, u"提示"_s);
    return false;
}

QString ChoosePhotograph(const QString& file) {
    const QString chosen = AskOpenFile(u"选择照片"_s, u"(JPEG图片文件)|*.jpg|(所有文件)|*.*"_s);
    if (chosen.isEmpty())
        return {};
    if (!QFileInfo(chosen).isFile()) {
        MsgBox(u"照片文件不存在？"_s, u"请检查"_s);
        return {};
    }
    if (!TakeCopy(chosen, file)) {
        MsgBox(u"照片文件不能复制，请检查本机的磁盘空间！"_s, u"提示"_s);
        return {};
    }
    return FitForServer(file) ? file : QString();
}

} // namespace

QString TakePhotograph(QWidget* parent, const QString& fileName) {
    const QString file = PhotographFile(fileName);
    Camera& camera = Camera::Installed();
    if (!camera.CamConnect(Param(u"CamDev"))) {
        MsgBox(u"没有找到摄像设备，请选择一个照片文件代替。"_s, u"提示"_s);
        return ChoosePhotograph(file);
    }
    ModalScreen<PhotoFrm> view(parent, camera, file);
    const bool answered = view.show();
    camera.CamDisConnect();
    if (!answered)
        return {};
    if (view->fromFile())
        return ChoosePhotograph(file);
    return FitForServer(file) ? file : QString();
}

} // namespace hotel
