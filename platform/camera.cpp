#include "platform/camera.h"

#include <QCamera>
#include <QCameraDevice>
#include <QMediaCaptureSession>
#include <QMediaDevices>
#include <QTimer>
#include <QVideoFrame>
#include <QVideoSink>

#include <algorithm>
#include <memory>

#include "platform/events.h"

namespace hotel {

namespace {

constexpr int kLookMilliseconds = 20;
constexpr int kLargestWidth = 1920; // enough to read a document by
constexpr float kSlowestRate = 10;  // pictures a second; below that nobody can aim
constexpr int kJpegQuality = 90;

// The toolkit's own choice reaches cameras only with plug-ins that it does not bring along; this one
// asks the system itself.
void ChooseBackend() {
    if (qEnvironmentVariableIsEmpty("QT_MEDIA_BACKEND"))
        qputenv("QT_MEDIA_BACKEND", "ffmpeg");
}

QCameraDevice FindDevice(const QString& device) {
    if (device.isEmpty())
        return QMediaDevices::defaultVideoInput();
    const QList<QCameraDevice> devices = QMediaDevices::videoInputs();
    bool isNumber = false;
    const int number = device.toInt(&isNumber);
    if (isNumber)
        return devices.value(number);
    const auto found = std::ranges::find_if(devices, [&device](const QCameraDevice& candidate) {
        return candidate.description().contains(device, Qt::CaseInsensitive);
    });
    return found == devices.end() ? QCameraDevice() : *found;
}

// The largest picture that comes quickly enough; a null format leaves the choice to the system.
QCameraFormat BestFormat(const QCameraDevice& device) {
    QCameraFormat best;
    for (const QCameraFormat& format : device.videoFormats()) {
        const bool fits =
            format.resolution().width() <= kLargestWidth && format.maxFrameRate() >= kSlowestRate;
        if (fits && format.resolution().width() > best.resolution().width())
            best = format;
    }
    return best;
}

// A device that is connected, and the last picture it has given.
class Capture {
public:
    explicit Capture(const QCameraDevice& device) : camera_(device) {
        camera_.setCameraFormat(BestFormat(device));
        QObject::connect(&sink_, &QVideoSink::videoFrameChanged, &sink_,
                         [this](const QVideoFrame& frame) {
                             frame_ = frame;
                             ++frames_;
                         });
        session_.setCamera(&camera_);
        session_.setVideoSink(&sink_);
        camera_.start();
    }

    bool works() const { return camera_.error() == QCamera::NoError; }
    QImage picture() const { return works() ? frame_.toImage() : QImage(); }
    qint64 frames() const { return frames_; }

private:
    QCamera camera_;
    QVideoSink sink_;
    QMediaCaptureSession session_; // lets go of the two above first
    QVideoFrame frame_;
    qint64 frames_ = 0;
};

class SystemCamera : public Camera {
public:
    bool CamConnect(const QString& device) override {
        CamDisConnect();
        ChooseBackend();
        const QCameraDevice found = FindDevice(device);
        if (found.isNull())
            return false;
        capture_ = std::make_shared<Capture>(found);
        return true;
    }

    QImage seen() const override { return capture_ ? capture_->picture() : QImage(); }

    bool TakePhoto(const QString& file) override {
        const auto capture = capture_; // stands through the wait, whoever disconnects meanwhile
        if (!capture || !nextFrame(*capture))
            return false;
        const QImage picture = capture->picture();
        return !picture.isNull() && picture.save(file, "JPG", kJpegQuality);
    }

    void CamDisConnect() override { capture_.reset(); }

private:
    // Waits for a picture that was taken from now on.
    bool nextFrame(const Capture& capture) const {
        const qint64 before = capture.frames();
        QTimer look; // wakes the wait even when the device says nothing any more
        look.start(kLookMilliseconds);
        QTimer patience;
        patience.setSingleShot(true);
        patience.start(kCameraPatience);
        while (capture.frames() == before) {
            if (capture_.get() != &capture || !capture.works() || !patience.isActive())
                return false;
            LetEventsThrough(QEventLoop::WaitForMoreEvents);
        }
        return true;
    }

    std::shared_ptr<Capture> capture_;
};

Camera* installed = nullptr;

} // namespace

Camera& Camera::Installed() {
    static SystemCamera system;
    return installed ? *installed : system;
}

void Camera::Install(Camera* camera) {
    installed = camera;
}

} // namespace hotel
