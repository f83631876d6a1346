#pragma once

#include "cli/generator/CDropZoneInfo.h"

#include <span>
#include <string_view>

// The words a synthetic logbook is made of: drop zones with their aircraft, jump types, landings,
// rig descriptions, teams, malfunctions, witnesses and note lines (with umlauts on purpose).
class CGeneratorVocabulary
{
public:
    static std::span<const CDropZoneInfo> DropZones();
    // Jump types done in a belly-to-earth position (Standard fall rate).
    static std::span<const std::string_view> BellyTypes();
    // Jump types flown head-down or sitting (Vertical fall rate).
    static std::span<const std::string_view> VerticalTypes();
    // Jump types flown with a wingsuit or tracking suit (Custom fall rate).
    static std::span<const std::string_view> SlowTypes();
    static std::span<const std::string_view> Landings();
    // Rigs named by free text (rentals, borrowed student gear).
    static std::span<const std::string_view> RigDescriptions();
    static std::span<const std::string_view> Teams();
    static std::span<const std::string_view> Malfunctions();
    // Witnesses who sign jumps, each with a licence id.
    static std::span<const std::string_view> Signers();
    static std::span<const std::string_view> SignerIds();
    // Single lines of a jump note.
    static std::span<const std::string_view> NoteLines();
    // Texts placed on a flight recording: exit, opening, landing.
    static std::span<const std::string_view> AnnotationTexts();
};
