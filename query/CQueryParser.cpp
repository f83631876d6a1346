#include "query/CQueryParser.h"

#include "model/FallrateKind.h"
#include "query/FoldText.h"
#include "units/CUnitSettings.h"
#include "units/RoundValue.h"
#include "xml/CDateTime.h"

#include <array>
#include <cmath>
#include <optional>

namespace {

using Bound = std::int64_t;
constexpr Bound kLowest = std::numeric_limits<Bound>::min();
constexpr Bound kHighest = std::numeric_limits<Bound>::max();

// One blank-separated piece of the query with its quotes taken out.
struct Token
{
    std::string source;
    std::string key; // lower case, empty without one
    std::string value;
    bool negated = false;
};

bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::string Lower(std::string_view text)
{
    std::string out(text);
    for (char& c : out) {
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    }
    return out;
}

// Splits at blanks outside quotes; a quote opens or closes a quoted part anywhere in a token, and
// an unclosed quote runs to the end. A key is the letters before a ':' that comes before any
// quote; a '-' in front (outside quotes) negates.
std::vector<Token> Tokenize(std::string_view text)
{
    std::vector<Token> tokens;
    std::size_t i = 0;
    while (i < text.size()) {
        if (IsBlank(text[i])) {
            ++i;
            continue;
        }
        const std::size_t start = i;
        Token token;
        std::string raw;
        bool quoted = false;
        bool quoteSeen = false;
        std::size_t colon = std::string::npos;
        if (text[i] == '-') {
            token.negated = true;
            ++i;
        }
        for (; i < text.size() && (quoted || !IsBlank(text[i])); ++i) {
            const char c = text[i];
            if (c == '"') {
                quoted = !quoted;
                quoteSeen = true;
                continue;
            }
            if (c == ':' && !quoteSeen && colon == std::string::npos)
                colon = raw.size();
            raw += c;
        }
        token.source = std::string(text.substr(start, i - start));
        bool lettersOnly = colon != std::string::npos && colon > 0;
        for (std::size_t k = 0; lettersOnly && k < colon; ++k) {
            const char c = raw[k];
            lettersOnly = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
        }
        if (lettersOnly) {
            token.key = Lower(std::string_view(raw).substr(0, colon));
            token.value = raw.substr(colon + 1);
        } else {
            token.value = std::move(raw);
        }
        tokens.push_back(std::move(token));
    }
    return tokens;
}

// A whole number of at most nine digits.
QueryProblem ReadCount(std::string_view text, Bound& value)
{
    if (text.empty())
        return QueryProblem::NotANumber;
    value = 0;
    for (const char c : text) {
        if (!IsDigit(c))
            return QueryProblem::NotANumber;
    }
    if (text.size() > 9)
        return QueryProblem::NumberTooLarge;
    for (const char c : text)
        value = value * 10 + (c - '0');
    return QueryProblem::None;
}

// Reads "a", "a..b", "..b" or "a.." with one, where one reads an end (upper: the end of a range or
// a single value's last moment).
template <typename ReadOne>
QueryProblem ReadRange(std::string_view text, Bound& low, Bound& high, ReadOne one)
{
    const std::size_t dots = text.find("..");
    if (dots == std::string_view::npos) {
        if (const QueryProblem problem = one(text, false, low); problem != QueryProblem::None)
            return problem;
        return one(text, true, high);
    }
    const std::string_view first = text.substr(0, dots);
    const std::string_view last = text.substr(dots + 2);
    if (first.empty() && last.empty())
        return QueryProblem::RangeWithoutEnd;
    low = kLowest;
    high = kHighest;
    if (!first.empty()) {
        if (const QueryProblem problem = one(first, false, low); problem != QueryProblem::None)
            return problem;
    }
    if (!last.empty()) {
        if (const QueryProblem problem = one(last, true, high); problem != QueryProblem::None)
            return problem;
    }
    return low > high ? QueryProblem::RangeReversed : QueryProblem::None;
}

QueryProblem ReadNumberEnd(std::string_view text, bool, Bound& value)
{
    return ReadCount(text, value);
}

// "2024", "2024-05" or "2024-05-17": the first day of it, or the last when upper.
QueryProblem ReadDateEnd(std::string_view text, bool upper, Bound& value, bool yearOnly)
{
    std::array<Bound, 3> parts{};
    std::size_t count = 0;
    std::size_t pos = 0;
    while (true) {
        const std::size_t dash = text.find('-', pos);
        const std::string_view part = text.substr(pos, dash == std::string_view::npos ? dash : dash - pos);
        const bool fits = count == 0 ? part.size() == 4 : !part.empty() && part.size() <= 2;
        if (count == 3 || !fits || ReadCount(part, parts[count]) != QueryProblem::None)
            return yearOnly ? QueryProblem::NotAYear : QueryProblem::NotADate;
        ++count;
        if (dash == std::string_view::npos)
            break;
        pos = dash + 1;
    }
    if (yearOnly && count != 1)
        return QueryProblem::NotAYear;
    const int year = static_cast<int>(parts[0]);
    if (year < 100)
        return yearOnly ? QueryProblem::NotAYear : QueryProblem::NotADate;
    int month = upper ? 12 : 1;
    if (count > 1) {
        month = static_cast<int>(parts[1]);
        if (month < 1 || month > 12)
            return QueryProblem::NoSuchMonth;
    }
    int day = upper ? CDateTime::DaysInMonth(year, month) : 1;
    if (count > 2) {
        day = static_cast<int>(parts[2]);
        if (!CDateTime::IsValidDate(year, month, day))
            return QueryProblem::NoSuchDay;
    }
    value = CDateTime(year, month, day).DayNumber();
    return QueryProblem::None;
}

// Seconds, "M:SS" or "H:MM:SS".
QueryProblem ReadDurationEnd(std::string_view text, bool, Bound& value)
{
    value = 0;
    std::size_t pos = 0;
    for (int part = 0;; ++part) {
        const std::size_t colon = text.find(':', pos);
        const std::string_view digits = text.substr(pos, colon == std::string_view::npos ? colon : colon - pos);
        Bound number = 0;
        const QueryProblem problem = ReadCount(digits, number);
        if (problem == QueryProblem::NumberTooLarge && part == 0 && colon == std::string_view::npos)
            return problem;
        if (problem != QueryProblem::None || part > 2 || (part > 0 && (digits.size() != 2 || number > 59)))
            return QueryProblem::NotADuration;
        value = value * 60 + number;
        if (colon == std::string_view::npos)
            return QueryProblem::None;
        pos = colon + 1;
    }
}

// The rounded display value of a height in metres.
Bound DisplayHeight(Bound metres, const CUnitSettings& units)
{
    return static_cast<Bound>(RoundValue(units.HeightToDisplay(static_cast<double>(metres)), RoundHalfUp, 0));
}

// The range of whole metres whose rounded display value lies in [low, high] (display units).
void HeightRangeToMetres(Bound& low, Bound& high, const CUnitSettings& units)
{
    if (low != kLowest) {
        Bound m = static_cast<Bound>(std::floor(units.HeightFromDisplay(static_cast<double>(low)))) - 2;
        while (DisplayHeight(m, units) < low)
            ++m;
        low = m;
    }
    if (high != kHighest) {
        Bound m = static_cast<Bound>(std::ceil(units.HeightFromDisplay(static_cast<double>(high)))) + 2;
        while (DisplayHeight(m, units) > high)
            --m;
        high = m;
    }
}

struct HasName
{
    std::string_view name;
    std::uint32_t flag;
};
constexpr HasName kHasNames[] = {{"recording", kFlagRecording}, {"note", kFlagNote}, {"picture", kFlagPicture},
                                 {"video", kFlagVideo},         {"wind", kFlagWind}, {"malfunction", kFlagMalfunction}};

QueryProblem ReadText(const Token& token, QueryField field, CQueryTerm& term)
{
    term.kind = CQueryTerm::Text;
    term.field = field;
    term.needle = FoldText(token.value);
    return term.needle.empty() ? QueryProblem::NothingToFind : QueryProblem::None;
}

// "2", "[2]": the rig's number; anything else is text.
std::optional<int> RigNumber(std::string_view value)
{
    if (value.size() >= 2 && value.front() == '[' && value.back() == ']')
        value = value.substr(1, value.size() - 2);
    Bound number = 0;
    if (ReadCount(value, number) != QueryProblem::None)
        return std::nullopt;
    return static_cast<int>(number);
}

// The field a typed term's key names ("year" is the date's, read as whole years); null for none.
const JumpFieldInfo* FieldOfKey(std::string_view key)
{
    if (key == "year")
        return &JumpFieldInfoOf(JumpField::Date);
    for (const JumpFieldInfo& info : JumpFields())
        if (!info.term.empty() && info.term == key)
            return &info;
    return nullptr;
}

// Makes term a range of the field's number.
void RangeOf(JumpField field, CQueryTerm& term)
{
    term.kind = CQueryTerm::Range;
    for (std::size_t n = 0; n < kQueryNumberSources.size(); ++n)
        if (kQueryNumberSources[n] == field)
            term.number = static_cast<QueryNumber>(n);
}

QueryProblem ReadTerm(const Token& token, const CUnitSettings& units, CQueryTerm& term)
{
    term.source = token.source;
    term.negated = token.negated;
    if (token.key.empty())
        return ReadText(token, QueryField::Any, term);
    if (token.value.empty())
        return QueryProblem::NothingToFind;
    const std::string& key = token.key;
    const JumpFieldInfo* field = FieldOfKey(key);
    if (field && field->field == JumpField::Equipment) {
        if (const std::optional<int> number = RigNumber(token.value)) {
            term.kind = CQueryTerm::Equals;
            term.equality = CQueryTerm::RigNumber;
            term.value = *number;
            return QueryProblem::None;
        }
    }
    const std::string value = Lower(token.value);
    switch (field ? field->type : JumpFieldType::State) {
    case JumpFieldType::Text:
        for (std::size_t f = 0; f < kQueryFieldSources.size(); ++f)
            if (kQueryFieldSources[f] == field->field)
                return ReadText(token, static_cast<QueryField>(f), term);
        break;
    case JumpFieldType::Whole:
        RangeOf(field->field, term);
        return ReadRange(token.value, term.low, term.high, ReadNumberEnd);
    case JumpFieldType::Date: {
        const bool yearOnly = key == "year";
        RangeOf(field->field, term);
        return ReadRange(token.value, term.low, term.high, [yearOnly](std::string_view text, bool upper, Bound& v) {
            return ReadDateEnd(text, upper, v, yearOnly);
        });
    }
    case JumpFieldType::Height: {
        RangeOf(field->field, term);
        const QueryProblem problem = ReadRange(token.value, term.low, term.high, ReadNumberEnd);
        if (problem == QueryProblem::None)
            HeightRangeToMetres(term.low, term.high, units);
        return problem;
    }
    case JumpFieldType::Duration:
        RangeOf(field->field, term);
        return ReadRange(token.value, term.low, term.high, ReadDurationEnd);
    case JumpFieldType::Kind:
        term.kind = CQueryTerm::Equals;
        term.equality = CQueryTerm::FallrateKind;
        for (int kind = 0; kind < kFallrateKindCount; ++kind) {
            if (value == Lower(FallrateKindName(static_cast<FallrateKind>(kind)))) {
                term.value = kind;
                return QueryProblem::None;
            }
        }
        return QueryProblem::UnknownKind;
    default:
        break;
    }
    if (key == "signed") {
        term.kind = CQueryTerm::Flag;
        term.flag = value == "sealed"     ? kFlagSealIntact
                    : value == "changed"  ? kFlagSealChanged
                    : value == "unsealed" ? kFlagUnsealed
                                          : kFlagSigned;
        if (value == "no")
            term.negated = !term.negated;
        return term.flag != kFlagSigned || value == "yes" || value == "no" ? QueryProblem::None
                                                                           : QueryProblem::NotYesOrNo;
    }
    if (key == "has") {
        term.kind = CQueryTerm::Flag;
        for (const HasName& has : kHasNames) {
            if (value == has.name) {
                term.flag = has.flag;
                return QueryProblem::None;
            }
        }
        return QueryProblem::UnknownHas;
    }
    return QueryProblem::UnknownTerm;
}

constexpr CQueryParser::TermHelp kTerms[] = {
    {"dz:", "dz:Eloy", "drop zone"},
    {"ac:", "ac:Otter", "aircraft"},
    {"type:", "type:Wingsuit", "jump type"},
    {"team:", "team:\"Sky Pilots\"", "team"},
    {"signer:", "signer:Virtanen", "who signed"},
    {"rig:", "rig:[2]", "rig by number in brackets, or by its text"},
    {"kind:", "kind:Manual", "fall rate: Standard, Vertical, Custom, Manual, Import"},
    {"n:", "n:100..200", "jump numbers; ranges may be open: ..50, 400.."},
    {"date:", "date:2024-05", "a day, month or year, or a range of them"},
    {"year:", "year:2022..2023", "a year or a range of years"},
    {"exit:", "exit:4000..", "exit height in the display units"},
    {"open:", "open:..800", "opening height in the display units"},
    {"ff:", "ff:60..", "freefall seconds (or M:SS)"},
    {"signed:", "signed:no", "signed or not: yes, no; the seal: sealed, changed (after signing), unsealed"},
    {"has:", "has:recording", "recording, note, picture, video, wind, malfunction"},
};

} // namespace

std::string_view QueryProblemText(QueryProblem problem)
{
    switch (problem) {
    case QueryProblem::None:
        return {};
    case QueryProblem::UnknownTerm:
        return "no such term";
    case QueryProblem::NothingToFind:
        return "nothing to look for";
    case QueryProblem::NotANumber:
        return "not a whole number";
    case QueryProblem::NumberTooLarge:
        return "number too large";
    case QueryProblem::NotADate:
        return "not a date (2024, 2024-05 or 2024-05-17)";
    case QueryProblem::NoSuchMonth:
        return "no such month";
    case QueryProblem::NoSuchDay:
        return "no such day";
    case QueryProblem::NotAYear:
        return "not a year";
    case QueryProblem::NotADuration:
        return "not a number of seconds or M:SS";
    case QueryProblem::RangeWithoutEnd:
        return "a range needs a start or an end";
    case QueryProblem::RangeReversed:
        return "the range ends before it starts";
    case QueryProblem::NotYesOrNo:
        return "yes, no, sealed, changed or unsealed";
    case QueryProblem::UnknownHas:
        return "recording, note, picture, video, wind or malfunction";
    case QueryProblem::UnknownKind:
        return "Standard, Vertical, Custom, Manual or Import";
    }
    return {};
}

std::string CQueryError::Message() const
{
    return term + ": " + std::string(QueryProblemText(problem));
}

CQueryParseResult CQueryParser::Parse(std::string_view text, const CUnitSettings& units)
{
    CQueryParseResult result;
    for (const Token& token : Tokenize(text)) {
        CQueryTerm term;
        const QueryProblem problem = ReadTerm(token, units, term);
        if (problem != QueryProblem::None) {
            result.query.terms.clear();
            result.error = CQueryError{problem, token.source};
            return result;
        }
        result.query.terms.push_back(std::move(term));
    }
    return result;
}

std::span<const CQueryParser::TermHelp> CQueryParser::Terms()
{
    return kTerms;
}
