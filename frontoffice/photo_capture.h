#pragma once

// Photographs of guests and their documents, taken while a guest is typed.

#include <QString>

class QWidget;

namespace hotel {

// Takes a photograph into a file of that name and gives its path; empty when the user gave up. With a
// camera (parameter CamDev) the user sees what it sees and takes the picture by Enter; without one he
// is told so and chooses a picture file, which is copied. The file lies in a folder of this program
// of its own, is deleted by the upload (WithUploadedPhotographs in house/stays/check_in.h), and otherwise
// goes with the end of the program. Characters that no file name may have are replaced by "_". A picture
// that the server could not give back is scaled down; a file that is none and too large is refused.
QString TakePhotograph(QWidget* parent, const QString& fileName);

} // namespace hotel
