#include "frontoffice/PhotoFrm.h"

#include <QVBoxLayout>

#include "platform/camera.h"
#include "record/literals.h"
#include "screen/messages.h"
#include "tools/aids/photo_frame.h"

namespace hotel {

namespace {

constexpr int kViewMilliseconds = 40;

} // namespace

PhotoFrm::PhotoFrm(Camera& camera, const QString& file)
    : Screen(u"PhotoFrm"_s, u"拍照"_s), camera_(camera), file_(file),
      view_(new PhotoFrame(u"View"_s, u"正在等待摄像设备的图像…"_s)) {
    auto* content = new QVBoxLayout;
    content->addWidget(view_, 1);
    setContent(content);
    addCommands({
        {u"TakeCmd"_s, u"拍照"_s, [this] { TakeCmd_Click(); }, Qt::Key_F8, CommandKind::Default},
        {u"FileCmd"_s, u"选择照片"_s, [this] { FileCmd_Click(); }, Qt::Key_F4},
        {u"ExitCmd"_s, u"放弃"_s, [this] { close(); }, Qt::Key_Escape, CommandKind::Plain,
         u"end"_s},
    });
    command(u"TakeCmd")->setFocus();
    setStatus(u"对准以后按回车键拍照"_s);
    every(kViewMilliseconds, [this] { ShowView(); });
    resize(760, 640);
}

void PhotoFrm::TakeCmd_Click() {
    if (camera_.TakePhoto(file_))
        return accept();
    if (!stopRequested())
        MsgBox(u"没有拍到照片，请检查摄像设备，或选择一个照片文件代替。"_s, u"提示"_s);
}

void PhotoFrm::FileCmd_Click() {
    fromFile_ = true;
    accept();
}

void PhotoFrm::ShowView() {
    view_->setPhoto(QPixmap::fromImage(camera_.seen()));
}

} // namespace hotel
