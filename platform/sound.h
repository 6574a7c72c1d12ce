#pragma once

// The loudspeaker of the workstation.

#include <QString>

namespace hotel {

class Loudspeaker {
public:
    virtual ~Loudspeaker() = default;

    // Begins to play a sound file of this workstation and comes back at once; a sound that plays still is cut
    // off. A relative name, as the parameters have it (with backslashes), lies beside the program. Silent where
    // there is no such file or no device.
    virtual void play(const QString& file) = 0;

    // The one in use: that of the system, or the one a test has put in its place.
    static Loudspeaker& Installed();
    static void Install(Loudspeaker* loudspeaker); // null: that of the system again
};

} // namespace hotel
