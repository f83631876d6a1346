#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

// What the generated logbook looks like.
struct LogbookXmlOptions
{
    // Number of jumps; when minBytes is larger, jumps are added until the text reaches it.
    int jumps = 5000;
    std::size_t minBytes = 0;
    std::uint64_t seed = 1;
    // The program writes compact files; indented ones exercise the layout rules.
    bool compact = true;
    // One jump in this many carries a GPS recording with waypoints (0: none).
    int profileEvery = 10;
};

// Builds a logbook-shaped XML document (settings, then "log" with jumps carrying every kind of
// child: fall rate, wind, equipment, notes with entities and umlauts, signatures with strokes,
// some flight recordings). The same options always give the same bytes.
std::string GenerateLogbookXml(const LogbookXmlOptions& options);
