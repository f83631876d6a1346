#include "FuzzTargets.h"
#include "query/CJumpIndex.h"
#include "query/CQueryParser.h"
#include "tests/query/QueryTestLogbook.h"
#include "units/CUnitSettings.h"

#include <algorithm>

namespace {

// The search's small logbook, made once.
const CLogbookDoc& Logbook()
{
    static const CLogbookDoc* doc = [] {
        auto* made = new CLogbookDoc;
        QueryTestLogbook::Fill(*made);
        return made;
    }();
    return *doc;
}

std::string CheckQuery(std::string_view text, const CUnitSettings& units)
{
    const CQueryParseResult parsed = CQueryParser::Parse(text, units);
    const CQueryParseResult again = CQueryParser::Parse(text, units);
    if (parsed.Ok() != again.Ok() || parsed.query.terms != again.query.terms || parsed.error.term != again.error.term)
        return "parsing the same text twice gave different results";
    if (!parsed) {
        if (!parsed.query.IsEmpty())
            return "a refused query kept terms";
        if (parsed.error.term.empty() || text.find(parsed.error.term) == std::string_view::npos)
            return "the refused term is not part of the query";
        if (QueryProblemText(parsed.error.problem).empty() ||
            parsed.error.Message() != parsed.error.term + ": " + std::string(QueryProblemText(parsed.error.problem)))
            return "a refused query has no message";
        return {};
    }
    for (const CQueryTerm& term : parsed.query.terms) {
        if (term.source.empty() || text.find(term.source) == std::string_view::npos)
            return "a term is not part of the query";
        if (term.kind == CQueryTerm::Text && (term.needle.empty() || term.needle.front() != ' '))
            return "a text term has no folded words";
    }
    const CLogbookDoc& doc = Logbook();
    const CJumpIndex index(doc);
    const std::vector<std::size_t> found = index.Find(parsed.query);
    if (!std::is_sorted(found.begin(), found.end()) || std::adjacent_find(found.begin(), found.end()) != found.end())
        return "the matches are not in list order";
    for (std::size_t i = 0; i < doc.GetJumpCount(); ++i) {
        if (index.Matches(parsed.query, i) != std::binary_search(found.begin(), found.end(), i))
            return "Find and Matches disagree";
    }
    // Each term and the same term turned around split the jumps between them.
    for (const CQueryTerm& term : parsed.query.terms) {
        CQuery one{{term}};
        CQuery other{{term}};
        other.terms[0].negated = !term.negated;
        if (index.Find(one).size() + index.Find(other).size() != doc.GetJumpCount())
            return "a term and its negation do not split the jumps";
    }
    return {};
}

} // namespace

std::string FuzzQuery(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    for (const CUnitSettings& units :
         {CUnitSettings(CUnitSettings::Metric, 0, 0), CUnitSettings(CUnitSettings::Imperial, 0, 0)}) {
        if (std::string problem = CheckQuery(text, units); !problem.empty())
            return problem;
    }
    return {};
}
