#pragma once

#include <string>
#include <string_view>

// "H:MM:SS" (hours unpadded and unlimited); 0 seconds give the empty text unless force is set.
std::string DurationToText(int seconds, bool force);

// Reads "S", "M:SS" or "H:MM:SS" typed by the user (seconds < 60 alone; minutes < 60 and seconds
// <= 59 with a colon; an empty part counts as 0). The empty text is 0. On failure seconds is kept.
bool DurationFromText(std::string_view text, int& seconds);
