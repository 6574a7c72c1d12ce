#pragma once

// Drawing a chart: white ground, black words, series that differ in colour, in lightness and by their hatching
// or marks, so that they can be told apart on grey paper as well. Nothing moves.

#include <QImage>
#include <QSize>

#include "tools/charts/chart.h"

namespace hotel {

// The picture of a chart, `size` times `scale` pixels: fonts and lines are drawn for `size`. Labels that don't
// fit side by side are slanted, or every so many is left out. A chart that isn't worth drawing gives an empty
// ground.
QImage DrawChart(const Chart& chart, QSize size, double scale = 1);

// Puts a chart on the page of the open print job, lengths in centimetres (see tools/paper/PrtSubs.h).
void PrintChart(const Chart& chart, double x, double y, double width, double height);

// Asks for a file name and writes the picture there; the user is told. False when nothing was written.
bool SaveChartPicture(const Chart& chart);

} // namespace hotel
