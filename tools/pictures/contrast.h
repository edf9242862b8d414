#pragma once

#include <QWidget>
#include <map>
#include <string>

namespace kvrnstep::pictures {

/// The least contrast that was found of each kind of thing.
using Contrasts = std::map<std::string, double>;

/// Measures what is drawn of a window, from its pixels: texts, outlines and marks against what is
/// around them, and the ring around each control that can have the keyboard.
void measure(QWidget& window, Contrasts& found);

/// What the contrast of such things is to be at the least.
double leastContrast(const std::string& kind);

}  // namespace kvrnstep::pictures
