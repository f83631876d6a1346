#include "model/CJumpSeal.h"

#include "model/CJump.h"
#include "model/CLogbookSettings.h"
#include "resources/StringTable.h"
#include "xml/XmlValues.h"

#include <openssl/evp.h>

#include <array>
#include <charconv>
#include <memory>
#include <stdexcept>

namespace {

// The first line of the encoding names the scheme and its version.
constexpr std::string_view kHeader = "tervola-seal 1\n";

void AddField(std::string& out, std::string_view name, std::string_view value)
{
    out += name;
    out += '=';
    out += std::to_string(value.size());
    out += ':';
    out += value;
    out += '\n';
}

void AppendInt(std::string& out, int value)
{
    char digits[16];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    out.append(digits, static_cast<std::size_t>(end - digits));
}

void AddField(std::string& out, std::string_view name, int value)
{
    char digits[16];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    AddField(out, name, std::string_view(digits, static_cast<std::size_t>(end - digits)));
}

// Every stroke as its point count and its points: "3:1,2;3,4;5,6;" per stroke, strokes
// separated by "|". The counts keep a point from moving between strokes unnoticed.
void AppendStrokes(std::string& text, const CJump& jump)
{
    for (const CJumpSignature::Stroke& stroke : jump.GetSignature().GetStrokes()) {
        AppendInt(text, static_cast<int>(stroke.size()));
        text += ':';
        for (const CPoint& point : stroke) {
            AppendInt(text, point.x);
            text += ',';
            AppendInt(text, point.y);
            text += ';';
        }
        text += '|';
    }
}

std::string Sha256Hex(std::string_view bytes)
{
    // The algorithm is looked up in OpenSSL's providers once rather than on every hash, and each
    // thread keeps its context.
    static EVP_MD* const sha256 = EVP_MD_fetch(nullptr, "SHA256", nullptr);
    thread_local const std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context(EVP_MD_CTX_new(),
                                                                                       &EVP_MD_CTX_free);
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
    unsigned int length = 0;
    if (!sha256 || !context || EVP_DigestInit_ex(context.get(), sha256, nullptr) != 1 ||
        EVP_DigestUpdate(context.get(), bytes.data(), bytes.size()) != 1 ||
        EVP_DigestFinal_ex(context.get(), digest.data(), &length) != 1)
        throw std::runtime_error("SHA-256 is not available");
    static constexpr char kHex[] = "0123456789abcdef";
    std::string hex;
    hex.reserve(2 * length);
    for (unsigned int i = 0; i < length; ++i) {
        hex += kHex[digest[i] >> 4];
        hex += kHex[digest[i] & 0x0f];
    }
    return hex;
}

} // namespace

namespace JumpSeal {

std::string Encode(const CJump& jump, std::string_view equipmentText, int freefallSeconds)
{
    std::string out;
    out.reserve(512);
    out += kHeader;
    AddField(out, "number", jump.GetNumber());
    AddField(out, "time", XmlZonedDateTimeToString(jump.GetTimestamp()));
    AddField(out, "place", jump.GetPlace());
    AddField(out, "aircraft", jump.GetAircraft());
    AddField(out, "type", jump.GetType());
    AddField(out, "exit", jump.GetExitHeight());
    AddField(out, "open", jump.GetOpenHeight());
    AddField(out, "freefall", freefallSeconds);
    AddField(out, "fallrate", static_cast<int>(jump.GetFallrateKind()));
    AddField(out, "equipment", equipmentText);
    AddField(out, "landing", jump.GetLanding());
    std::string note;
    if (jump.GetNoteText(note))
        AddField(out, "note", note);
    else
        AddField(out, "note-markup", jump.GetNote());
    const CJumpSignature& signature = jump.GetSignature();
    AddField(out, "signer", signature.GetName());
    AddField(out, "licence", signature.GetLicence());
    std::string strokes;
    strokes.reserve(16 * 8 * jump.GetSignature().GetStrokes().size());
    AppendStrokes(strokes, jump);
    AddField(out, "strokes", strokes);
    return out;
}

std::string Encode(const CJump& jump, const CLogbookSettings& settings)
{
    return Encode(jump, jump.GetEquipmentText(settings.GetEquipmentList()), jump.FreefallTime(settings));
}

std::string Compute(const CJump& jump, const CLogbookSettings& settings)
{
    return std::string(kPrefix) + Sha256Hex(Encode(jump, settings));
}

SealState Check(const CJump& jump, const CLogbookSettings& settings)
{
    if (!jump.IsSigned())
        return SealState::NotSigned;
    const std::string& id = jump.GetSignature().GetId();
    if (!id.starts_with(kPrefix))
        return SealState::Unsealed;
    return id == Compute(jump, settings) ? SealState::Intact : SealState::Changed;
}

int StateTextId(SealState state)
{
    switch (state) {
    case SealState::Intact:
        return StringTable::IDS_SEAL_INTACT;
    case SealState::Changed:
        return StringTable::IDS_SEAL_CHANGED;
    case SealState::Unsealed:
        return StringTable::IDS_SEAL_NONE;
    case SealState::NotSigned:
        break;
    }
    return 0;
}

} // namespace JumpSeal
