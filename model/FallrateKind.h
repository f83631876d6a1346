#pragma once

#include <string_view>

// How a jump's freefall time is obtained: from one of the three fall-rate speeds of the
// settings (Standard, Vertical, Custom), typed by the user (Manual) or taken from a recording
// (Import). The numbers are stored in the file and index the settings' speed table.
enum class FallrateKind
{
    Standard = 0,
    Vertical = 1,
    Custom = 2,
    Manual = 3,
    Import = 4
};

// The number of kinds; a kind's number is below it.
inline constexpr int kFallrateKindCount = 5;

// The file name of a kind ("Standard" ... "Import"); empty for a value outside the enumeration.
constexpr std::string_view FallrateKindName(FallrateKind kind)
{
    switch (kind) {
    case FallrateKind::Standard:
        return "Standard";
    case FallrateKind::Vertical:
        return "Vertical";
    case FallrateKind::Custom:
        return "Custom";
    case FallrateKind::Manual:
        return "Manual";
    case FallrateKind::Import:
        return "Import";
    }
    return {};
}

// The kind named exactly (case matters); false and kind untouched for an unknown name.
constexpr bool FallrateKindFromName(std::string_view name, FallrateKind& kind)
{
    constexpr FallrateKind order[] = {FallrateKind::Standard, FallrateKind::Vertical, FallrateKind::Custom,
                                      FallrateKind::Import, FallrateKind::Manual};
    for (FallrateKind candidate : order) {
        if (name == FallrateKindName(candidate)) {
            kind = candidate;
            return true;
        }
    }
    return false;
}

// True for the kinds whose freefall time is computed from a speed of the settings.
constexpr bool FallrateKindIsComputed(FallrateKind kind)
{
    return kind == FallrateKind::Standard || kind == FallrateKind::Vertical || kind == FallrateKind::Custom;
}
