#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// The bodies of the fuzz targets. Each takes one input, runs it through the code under test and
// checks the properties that must hold for every input; it returns an empty text when they all
// held and a description of the first broken one otherwise. libFuzzer calls them in the fuzz
// build (aborting on a non-empty result); the replay test runs them over the checked-in inputs
// in every build.

// The XML reader fed whole and in pseudo-random chunk splits, with a handler using every accessor.
std::string FuzzXmlParser(const std::uint8_t* data, std::size_t size);
// A whole logbook load from the bytes: plain, gzip, and gzip container read transparently.
std::string FuzzDocumentLoad(const std::uint8_t* data, std::size_t size);
// Every typed value reader on the bytes, and the writers on what they read.
std::string FuzzXmlValues(const std::uint8_t* data, std::size_t size);
// The search language: a query or a message for every input, and consistent matches.
std::string FuzzQuery(const std::uint8_t* data, std::size_t size);
// The FlySight track reader (both generations) and the sensor reader: a track or a refusal with
// its message, fixes in rising time order, the damaged lines counted within the file's lines.
std::string FuzzFlySight(const std::uint8_t* data, std::size_t size);
// The spreadsheet reader and the jump import on a fresh logbook: rows numbered by rising lines,
// every row taken or refused with a reason, the logbook taking every planned jump.
std::string FuzzCsvJumps(const std::uint8_t* data, std::size_t size);

// One fuzz target by name, as the scripts and the folders of checked-in inputs name them.
struct FuzzTarget
{
    std::string_view name;
    std::string (*body)(const std::uint8_t*, std::size_t);
};
inline constexpr FuzzTarget kFuzzTargets[] = {
    {"xml_parser", &FuzzXmlParser}, {"document_load", &FuzzDocumentLoad}, {"xml_values", &FuzzXmlValues},
    {"query", &FuzzQuery},          {"flysight_track", &FuzzFlySight},    {"csv_jumps", &FuzzCsvJumps},
};
