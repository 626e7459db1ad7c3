// The text form of a registered color set in the settings file: the count,
// then " r g b" for each color, e.g. "3 255 0 0 0 255 0 0 0 255".
#pragma once

#include <string>

#include "ColorSetList.h"

std::string FormatColorSet(const ColorSetRecord& record);

// Reads a value into `working`. Returns false, changing nothing, when there
// is no count or it is 0 or negative. A count above 7 is cut to 7; each
// channel is stored in 8 bits (300 becomes 44); when the tokens run out the
// remaining channels keep what `working` held before, and non-numeric
// tokens count as 0.
bool ParseColorSet(const std::string& value, ColorSetRecord* working);
