// Writes a generated logbook file: gen_logbook_xml OUT [--jumps N] [--mb M] [--seed S] [--indented]
// A path ending in ".tvz" is written gzip-compressed, anything else plain.
#include "LogbookXmlGenerator.h"

#include "xml/CXmlFileOutput.h"
#include "xml/CXmlGzipOutput.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s OUT [--jumps N] [--mb M] [--seed S] [--indented]\n", argv[0]);
        return 2;
    }
    const std::string path = argv[1];
    LogbookXmlOptions options;
    for (int i = 2; i < argc; ++i) {
        const std::string arg = argv[i];
        const bool hasValue = i + 1 < argc;
        if (arg == "--jumps" && hasValue)
            options.jumps = std::atoi(argv[++i]);
        else if (arg == "--mb" && hasValue)
            options.minBytes = static_cast<std::size_t>(std::atof(argv[++i]) * 1024 * 1024);
        else if (arg == "--seed" && hasValue)
            options.seed = std::strtoull(argv[++i], nullptr, 10);
        else if (arg == "--indented")
            options.compact = false;
        else {
            std::fprintf(stderr, "unknown argument %s\n", arg.c_str());
            return 2;
        }
    }
    const std::string text = GenerateLogbookXml(options);
    const bool gzip = path.size() >= 4 && path.compare(path.size() - 4, 4, ".tvz") == 0;
    std::unique_ptr<IXmlOutput> output;
    if (gzip)
        output = CXmlGzipOutput::Create(path);
    else
        output = CXmlFileOutput::Create(path);
    if (!output || !output->Write(text.data(), text.size()) || !output->Close()) {
        std::fprintf(stderr, "cannot write %s\n", path.c_str());
        return 1;
    }
    std::printf("%s: %zu bytes of XML\n", path.c_str(), text.size());
    return 0;
}
