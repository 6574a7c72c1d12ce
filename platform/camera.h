#pragma once

// The capture device of the workstation: photographs of guests and their documents.
//
//     Camera& camera = Camera::Installed();
//     if (camera.CamConnect(Param(u"CamDev"))) {
//         ... show camera.seen() ...
//         camera.TakePhoto(file);
//         camera.CamDisConnect();
//     }
//
// A device may go away at any time: what it can't do is answered by false or by no picture.

#include <QImage>
#include <QString>

namespace hotel {

class Camera {
public:
    virtual ~Camera() = default;

    // Connects to a device: by its number, the first one being 0, or by a part of its name; an empty
    // text means the system's default. False when there is no such device. Connecting again ends the
    // connection before.
    virtual bool CamConnect(const QString& device) = 0;

    // What the camera sees now; null while it sees nothing (yet).
    virtual QImage seen() const = 0;

    // Takes a picture into a file of this workstation, as JPEG whatever its name. Waits for the device
    // while events go on, kCameraPatience at most; false when it gives no picture or the file can't be
    // written.
    virtual bool TakePhoto(const QString& file) = 0;

    virtual void CamDisConnect() = 0;

    // The camera in use: that of the system, or the one a test has put in its place.
    static Camera& Installed();
    static void Install(Camera* camera); // null: that of the system again
};

inline constexpr int kCameraPatience = 5000; // milliseconds

} // namespace hotel
