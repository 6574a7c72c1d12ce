#pragma once

// What the camera sees; the user takes the picture by Enter. A question (ModalScreen): accepted when
// the picture is taken, or when a file is to be chosen in its place.

#include "screen/screen.h"

namespace hotel {

class Camera;
class PhotoFrame;

class PhotoFrm : public Screen {
    Q_OBJECT

public:
    // `camera` is connected; the picture goes into `file`.
    PhotoFrm(Camera& camera, const QString& file);

    bool fromFile() const { return fromFile_; }

private:
    void TakeCmd_Click();
    void FileCmd_Click();
    void ShowView();

    Camera& camera_;
    QString file_;
    bool fromFile_ = false;
    PhotoFrame* view_;
};

} // namespace hotel
