#pragma once

#include "model/JumpFields.h"

#include <array>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

// The text fields a search looks at, in the order the index keeps them.
enum class QueryField : std::uint8_t
{
    Place,
    Aircraft,
    Type,
    Team,
    Landing,
    Malfunction,
    Rig,
    Signer,
    Note,
    Count,
    Any = Count // every field
};

// The numbers of a jump a range term compares.
enum class QueryNumber : std::uint8_t
{
    JumpNumber, // "n:"
    Day,        // "date:" and "year:": days since 1970-01-01 of the jump's date
    ExitHeight, // "exit:" in metres (the term's display units converted)
    OpenHeight, // "open:" in metres
    Freefall,   // "ff:" seconds as the list shows them
    Count
};

// The jump's field behind each text field and each number of a search, in their order.
inline constexpr std::array<JumpField, static_cast<std::size_t>(QueryField::Count)> kQueryFieldSources = {
    JumpField::Place,       JumpField::Aircraft,  JumpField::Type,   JumpField::Team, JumpField::Landing,
    JumpField::Malfunction, JumpField::Equipment, JumpField::Signer, JumpField::Note};
inline constexpr std::array<JumpField, static_cast<std::size_t>(QueryNumber::Count)> kQueryNumberSources = {
    JumpField::Number, JumpField::Date, JumpField::Exit, JumpField::Open, JumpField::Freefall};

// The yes/no properties of a jump ("signed:", "has:"), as bits.
enum QueryFlag : std::uint32_t
{
    kFlagSigned = 1u << 0,
    kFlagRecording = 1u << 1,
    kFlagNote = 1u << 2,
    kFlagPicture = 1u << 3,
    kFlagVideo = 1u << 4,
    kFlagWind = 1u << 5,
    kFlagMalfunction = 1u << 6,
    // The seal of a signed jump ("signed:sealed", "signed:changed", "signed:unsealed").
    kFlagSealIntact = 1u << 7,
    kFlagSealChanged = 1u << 8,
    kFlagUnsealed = 1u << 9,
};

// One condition of a query.
struct CQueryTerm
{
    enum Kind : std::uint8_t
    {
        Text,   // folded words (" w1 w2") that start words of field, consecutively
        Range,  // number between low and high, both included
        Equals, // the fall-rate kind ("kind:") or the rig's number ("rig:[2]")
        Flag,   // the flag bit is set
    };
    enum Equality : std::uint8_t
    {
        FallrateKind,
        RigNumber
    };

    Kind kind = Text;
    bool negated = false;
    QueryField field = QueryField::Any;
    QueryNumber number = QueryNumber::JumpNumber;
    Equality equality = FallrateKind;
    std::string needle; // Text: the folded words
    std::int64_t low = std::numeric_limits<std::int64_t>::min();
    std::int64_t high = std::numeric_limits<std::int64_t>::max();
    std::uint32_t flag = 0;
    int value = 0;      // Equals
    std::string source; // the term as written

    friend bool operator==(const CQueryTerm&, const CQueryTerm&) = default;
};

// A parsed query: every term must hold. No terms: every jump matches.
struct CQuery
{
    std::vector<CQueryTerm> terms;

    bool IsEmpty() const { return terms.empty(); }
};

// Why a term was refused.
enum class QueryProblem : std::uint8_t
{
    None,
    UnknownTerm,     // "foo:bar"
    NothingToFind,   // "dz:", "-", a word of punctuation only
    NotANumber,      // "n:abc", "exit:1.5"
    NumberTooLarge,  // more than nine digits
    NotADate,        // "date:24-5"
    NoSuchMonth,     // "date:2024-13"
    NoSuchDay,       // "date:2023-02-29"
    NotAYear,        // "year:24"
    NotADuration,    // "ff:1:75"
    RangeWithoutEnd, // "n:.."
    RangeReversed,   // "n:200..100"
    NotYesOrNo,      // "signed:maybe" (yes, no, sealed, changed, unsealed)
    UnknownHas,      // "has:dog"
    UnknownKind      // "kind:Belly"
};

// The reason's text in English ("no such month").
std::string_view QueryProblemText(QueryProblem problem);

// A refused term and the reason.
struct CQueryError
{
    QueryProblem problem = QueryProblem::None;
    std::string term; // as written, "-" included

    // "date:2024-13: no such month".
    std::string Message() const;
};

// What parsing gives: the query, or the first refused term.
struct CQueryParseResult
{
    CQuery query;
    CQueryError error;

    bool Ok() const { return error.problem == QueryProblem::None; }
    explicit operator bool() const { return Ok(); }
};
