// Times CXmlParser against expat on the same logbook bytes, fed from memory in equal chunks,
// with equal work per event: every attribute value copied out, every element text read.
//   bench_xml_parse [FILE] [--mb M] [--reps R] [--chunk BYTES]
// Without FILE a logbook of M megabytes (default 30) is generated.
#include "CExpatCounter.h"
#include "LogbookXmlGenerator.h"

#include "xml/CXmlParser.h"

#include <zlib.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

class BenchHandler : public CXmlHandler
{
public:
    explicit BenchHandler(ParseWork& work) : m_work(work) {}

    bool OnOpenTag(CXmlParser& parser) override
    {
        ++m_work.starts;
        m_work.attributeBytes += parser.GetElementName().size();
        for (std::size_t i = 0; i < parser.GetAttributeCount(); ++i) {
            parser.GetAttribute(parser.GetAttributeNameRaw(i), m_value);
            m_work.attributeBytes += m_value.size();
        }
        return true;
    }
    bool OnCloseTag(CXmlParser& parser) override
    {
        ++m_work.ends;
        m_work.attributeBytes += parser.GetElementName().size();
        m_work.textBytes += parser.GetElementText().size();
        return true;
    }

private:
    ParseWork& m_work;
    std::string m_value;
};

double Seconds(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

bool ReadFile(const std::string& path, std::string& bytes)
{
    gzFile file = gzopen(path.c_str(), "rb"); // reads plain files unchanged
    if (file == nullptr)
        return false;
    char buffer[1 << 16];
    int n = 0;
    while ((n = gzread(file, buffer, sizeof buffer)) > 0)
        bytes.append(buffer, static_cast<std::size_t>(n));
    gzclose(file);
    return n == 0;
}

} // namespace

int main(int argc, char** argv)
{
    std::string path;
    double megabytes = 30;
    int reps = 5;
    std::size_t chunk = 64 * 1024;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--mb" && i + 1 < argc)
            megabytes = std::atof(argv[++i]);
        else if (arg == "--reps" && i + 1 < argc)
            reps = std::max(1, std::atoi(argv[++i]));
        else if (arg == "--chunk" && i + 1 < argc)
            chunk = std::max<std::size_t>(1, std::strtoull(argv[++i], nullptr, 10));
        else
            path = arg;
    }

    std::string bytes;
    if (!path.empty()) {
        if (!ReadFile(path, bytes)) {
            std::fprintf(stderr, "cannot read %s\n", path.c_str());
            return 1;
        }
    } else {
        LogbookXmlOptions options;
        options.minBytes = static_cast<std::size_t>(megabytes * 1024 * 1024);
        bytes = GenerateLogbookXml(options);
    }
    std::printf("input: %.1f MB, chunk %zu bytes, %d repetitions\n", bytes.size() / 1048576.0, chunk, reps);

    double bestOwn = 1e30;
    double bestExpat = 1e30;
    ParseWork own;
    ParseWork expat;
    for (int rep = 0; rep < reps; ++rep) {
        {
            ParseWork work;
            BenchHandler handler(work);
            CXmlParser parser(&handler);
            const auto start = std::chrono::steady_clock::now();
            parser.Reset();
            bool ok = true;
            for (std::size_t pos = 0; pos < bytes.size() && ok; pos += chunk)
                ok = parser.Feed(bytes.data() + pos, std::min(chunk, bytes.size() - pos));
            ok = ok && parser.Finish();
            bestOwn = std::min(bestOwn, Seconds(start));
            if (!ok) {
                std::fprintf(stderr, "CXmlParser failed: %s\n", parser.GetErrorMessage().arg1.c_str());
                return 1;
            }
            own = work;
        }
        {
            CExpatCounter counter;
            const auto start = std::chrono::steady_clock::now();
            bool ok = true;
            for (std::size_t pos = 0; pos < bytes.size() && ok; pos += chunk) {
                const std::size_t n = std::min(chunk, bytes.size() - pos);
                ok = counter.Feed(bytes.data() + pos, n, pos + n == bytes.size());
            }
            bestExpat = std::min(bestExpat, Seconds(start));
            if (!ok) {
                std::fprintf(stderr, "expat failed: %s\n", counter.ErrorText().c_str());
                return 1;
            }
            expat = counter.Work();
        }
    }
    const double mb = bytes.size() / 1048576.0;
    std::printf("CXmlParser: %8.1f ms  %7.1f MB/s  (%zu start, %zu end events, %zu attribute+name bytes, "
                "%zu text bytes)\n",
                bestOwn * 1000, mb / bestOwn, own.starts, own.ends, own.attributeBytes, own.textBytes);
    std::printf("expat:      %8.1f ms  %7.1f MB/s  (%zu start, %zu end events, %zu attribute+name bytes, "
                "%zu text bytes)\n",
                bestExpat * 1000, mb / bestExpat, expat.starts, expat.ends, expat.attributeBytes, expat.textBytes);
    std::printf("CXmlParser/expat = %.2f (target <= 0.50)\n", bestOwn / bestExpat);
    return 0;
}
