#include "cli/CGenerateCommand.h"

#include "bridge/CorePaths.h"
#include "cli/CConsole.h"
#include "cli/generator/CLogbookGenerator.h"
#include "document/CLogbookDoc.h"
#include "resources/StringTable.h"

#include <limits>

namespace {

const QString kJumps = QStringLiteral("jumps");
const QString kRecordings = QStringLiteral("recordings");
const QString kSamples = QStringLiteral("samples");
const QString kBarometric = QStringLiteral("baro");
const QString kSeed = QStringLiteral("seed");

// Reads a whole number in [low, high] from an option; false when it is not one.
bool ReadNumber(const QCommandLineParser& parser, const QString& name, qint64 low, qint64 high, qint64& value)
{
    bool ok = false;
    const qint64 number = parser.value(name).trimmed().toLongLong(&ok);
    if (!ok || number < low || number > high)
        return false;
    value = number;
    return true;
}

} // namespace

QString CGenerateCommand::Summary() const
{
    return QStringLiteral("Writes a realistic synthetic logbook (for demonstrations, tests and benchmarks).");
}

void CGenerateCommand::Configure(QCommandLineParser& parser)
{
    parser.addPositionalArgument(QStringLiteral("OUT"),
                                 QStringLiteral("The file to write: plain XML when it ends in .tvl, gzip otherwise."));
    parser.addOption({kJumps, QStringLiteral("Number of jumps (required)."), QStringLiteral("N")});
    parser.addOption(
        {kRecordings, QStringLiteral("Jumps that carry a GPS recording (default 0, at most N)."), QStringLiteral("R")});
    parser.addOption({kSamples, QStringLiteral("Waypoints of each GPS recording (default 100)."), QStringLiteral("S")});
    parser.addOption({kBarometric,
                      QStringLiteral("Further jumps with a barometric recording (default: one per 100 jumps)."),
                      QStringLiteral("B")});
    parser.addOption({kSeed, QStringLiteral("Seed of the random numbers (default 1)."), QStringLiteral("K")});
}

QString CGenerateCommand::Details() const
{
    return QStringLiteral("The logbook holds the owner's profile (membership, licences, ratings, awards), three\n"
                          "rigs with inspection dates and the inspection alarm, a custom fall rate and N jumps over\n"
                          "several seasons up to 2025-09-27 at drop zones in Finland, Sweden, Germany, the Czech\n"
                          "Republic, Spain and the USA: every fall-rate kind, winds, rigs by number and by name,\n"
                          "formations with teams and points, malfunctions, pictures and videos, notes of several\n"
                          "lines with umlauts, and signatures with drawn strokes (the newest jumps stay unsigned).\n"
                          "R jumps spread over the logbook carry a GPS recording of S waypoints with annotations\n"
                          "and wind layers; B more carry a barometric recording. Jump numbers continue the\n"
                          "profile's previous jumps and now and then skip one.\n"
                          "\n"
                          "The same options and seed always give the same logbook; only the file's save time\n"
                          "(\"mod\" of the root) differs between two runs. The file is written with the program's\n"
                          "own save (backup and safe replace as for \"convert\").\n"
                          "\n"
                          "Example: tervola generate demo.tvz --jumps 300 --recordings 3 --samples 200 --seed 7\n"
                          "Exit codes: 0 written, 1 OUT cannot be saved, 2 wrong command line.\n");
}

int CGenerateCommand::Execute(const QCommandLineParser& parser)
{
    constexpr qint64 kIntMax = std::numeric_limits<int>::max();
    CGeneratorOptions options;
    qint64 value = 0;
    if (!parser.isSet(kJumps))
        return Usage(QStringLiteral("--jumps N is needed"));
    if (!ReadNumber(parser, kJumps, 0, kIntMax, value))
        return Usage(QStringLiteral("--jumps needs a whole number of at least 0"));
    options.jumps = static_cast<int>(value);
    if (parser.isSet(kRecordings)) {
        if (!ReadNumber(parser, kRecordings, 0, options.jumps, value))
            return Usage(QStringLiteral("--recordings needs a whole number from 0 to the number of jumps"));
        options.recordings = static_cast<int>(value);
    }
    options.samples = 100;
    if (parser.isSet(kSamples)) {
        if (!ReadNumber(parser, kSamples, 0, kIntMax, value))
            return Usage(QStringLiteral("--samples needs a whole number of at least 0"));
        options.samples = static_cast<int>(value);
    }
    if (parser.isSet(kBarometric)) {
        if (!ReadNumber(parser, kBarometric, 0, options.jumps - options.recordings, value))
            return Usage(QStringLiteral("--baro needs a whole number from 0 to the jumps without a GPS recording"));
        options.barometric = static_cast<int>(value);
    }
    if (parser.isSet(kSeed)) {
        if (!ReadNumber(parser, kSeed, 0, std::numeric_limits<uint32_t>::max(), value))
            return Usage(QStringLiteral("--seed needs a whole number from 0 to 4294967295"));
        options.seed = static_cast<uint32_t>(value);
    }

    CLogbookDoc doc;
    CLogbookGenerator(options).Fill(doc);
    if (!doc.Save(CorePaths::LocalPath(parser.positionalArguments().at(0)))) {
        CConsole::ErrLine(StringTable::Text(StringTable::IDS_SAVE_FAILED));
        return Failure;
    }
    return Success;
}
