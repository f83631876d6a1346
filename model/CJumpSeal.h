#pragma once

#include <cstdint>
#include <string>
#include <string_view>

class CJump;
class CLogbookSettings;

// What a signed jump's seal says about it.
enum class SealState : std::uint8_t
{
    NotSigned, // the jump carries no signature
    Intact,    // sealed when signed, and nothing sealed has changed since
    Changed,   // sealed when signed, but the seal no longer matches: something changed afterwards
    Unsealed   // signed without a seal this program can check (another program, an older version
               // of this one, or a seal version it does not know)
};

// The seal of a signed jump: a SHA-256 hash over what the witness saw when signing, kept in the
// signature's id as "s1:" and 64 lowercase hex digits. Any program of the logbook format reads
// and writes the id as an opaque text, so a sealed logbook stays readable everywhere, and a change
// made by another program or by hand shows here as a broken seal.
//
// What version 1 hashes, in this order, each as a field of the canonical encoding (Encode):
//   number     the jump number, decimal
//   time       the time stamp in the file's own encoding ("ts": local date and time with the UTC
//              offset); invalid is empty
//   place, aircraft, type, landing   the stored texts, byte for byte
//   exit, open the heights in stored metres, decimal
//   freefall   the freefall time in whole seconds as the jump shows it (computed from the heights
//              and the settings' speed for the computed kinds, the stored time otherwise)
//   fallrate   the fall-rate kind's stored number
//   equipment  the rig as the jump shows it: the rig's display text ("[2] Javelin / Sabre2") for a
//              reference into the rig list, the free text otherwise
//   note       the note's text (character data of its paragraphs); a note whose markup does not
//              parse is hashed as stored, under a field name of its own
//   signer, licence   the signer's name and licence number as stored
//   strokes    every stroke in order, every point's x and y in order
// Everything is hashed in its stored, unit-free form, never as a display string: heights in
// metres and times in seconds do not change when the user switches to feet or another speed
// unit, and the locale's date and number formats do not reach the hash, so no preference can
// break a seal. The equipment and the computed freefall time are the two values a jump shows
// that are not stored in it; they are hashed as shown, because that is what the witness signed.
// Renaming a rig or changing the custom fall rate therefore does change sealed jumps, and the
// program asks before it does so (document/SealTouch.h). Left out on purpose: the modification
// stamp, wind, formation size, points, team, malfunction, pictures, video and the recording,
// which are not part of what a licensing body asks a witness to confirm, and the id itself.
namespace JumpSeal {

// The prefix of a version-1 seal in the signature's id.
inline constexpr std::string_view kPrefix = "s1:";

// The canonical encoding of version 1: a header line, then per field its name, "=", the byte
// length of the value, ":", the value and a line feed. The lengths make the encoding
// unambiguous whatever bytes a text holds. equipmentText and freefallSeconds are the two values
// that depend on the settings, as the jump shows them.
std::string Encode(const CJump& jump, std::string_view equipmentText, int freefallSeconds);
// The same with the equipment text and freefall time the settings give.
std::string Encode(const CJump& jump, const CLogbookSettings& settings);
// The id that seals the jump as it stands: kPrefix and the SHA-256 of Encode in hex.
std::string Compute(const CJump& jump, const CLogbookSettings& settings);
// The jump's seal checked against the jump as it stands. An id without kPrefix (another
// program's id, no id, another version) reads as Unsealed; a version-1 id that does not match,
// malformed ones included, as Changed.
SealState Check(const CJump& jump, const CLogbookSettings& settings);

// A short text for the state ("Sealed", "Changed after signing", "Signed, not sealed"), as a
// string-table message id; 0 for NotSigned.
int StateTextId(SealState state);

} // namespace JumpSeal
