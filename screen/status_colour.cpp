#include "screen/status_colour.h"

#include <cmath>

namespace hotel {

namespace {

// What the eye sees of a channel of 0 to 1.
double Linear(float channel) {
    return channel <= 0.04045F ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
    return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) +
           0.0722 * Linear(colour.blueF());
}

} // namespace

QColor StatusColour(int number) {
    return {number & 0xFF, number >> 8 & 0xFF, number >> 16 & 0xFF};
}

QColor ReadableOn(const QColor& fill) {
    constexpr double kGlare = 0.05; // light that even black throws back
    const double luminance = Luminance(fill) + kGlare;
    const bool black = luminance / kGlare > (1 + kGlare) / luminance;
    return black ? Qt::black : Qt::white;
}

} // namespace hotel
