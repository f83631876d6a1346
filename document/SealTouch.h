#pragma once

#include <cstddef>
#include <vector>

class CLogbookDoc;
class CLogbookSettings;

// A seal covers two values a jump shows that live in the settings: its rig's display text and,
// for the computed fall-rate kinds, its freefall time. Before the user changes rigs or the custom
// fall rate, the program counts the signed jumps that would show something else and asks.

// The signed jumps whose rig text or freefall time would differ under next. newPositions, when
// given, re-points the jumps' rig references as CLogbookDoc::ReplaceEquipment does (a jump naming
// a removed rig keeps the rig's text and so is not touched).
std::size_t CountSignedJumpsTouched(const CLogbookDoc& doc, const CLogbookSettings& next,
                                    const std::vector<int>* newPositions = nullptr);
