#include "CLoadChecker.h"
#include "FuzzFiles.h"
#include "FuzzTargets.h"
#include "tests/common/CScratchFolder.h"

namespace {

// One folder and one document for the whole fuzzing process: the document's reuse across
// thousands of failed and successful loads is part of what is tested.
struct Workbench
{
    CScratchFolder folder{"fuzz-load"};
    CLoadChecker checker{folder};
};

std::string Compare(const CCheckedLoad& a, const CCheckedLoad& b, const std::string& what)
{
    if (a.ok != b.ok)
        return what + ": the result differs from the plain file's";
    if (a.message != b.message)
        return what + ": the message differs from the plain file's";
    if (a.jumps != b.jumps)
        return what + ": the number of jumps differs from the plain file's";
    return {};
}

} // namespace

std::string FuzzDocumentLoad(const std::uint8_t* data, std::size_t size)
{
    static Workbench bench;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::string plain = bench.folder / "input.tvl";
    const std::string packed = bench.folder / "input.tvz";

    // A gzip stream (perhaps damaged) is loaded as it is; the same bytes are also parsed plain.
    if (size >= 2 && data[0] == 0x1F && data[1] == 0x8B) {
        WriteBytes(packed, bytes);
        const CCheckedLoad load = bench.checker.Load(packed, true);
        if (!load.problem.empty())
            return "gzip: " + load.problem;
        WriteBytes(plain, bytes);
        const CCheckedLoad raw = bench.checker.Load(plain, false);
        return raw.problem.empty() ? std::string() : "gzip bytes as plain: " + raw.problem;
    }

    // Any other bytes are the XML text: plain, compressed, and in the gzip container's
    // transparent reading of an uncompressed file must all load the same way.
    WriteBytes(plain, bytes);
    const CCheckedLoad fromPlain = bench.checker.Load(plain, true);
    if (!fromPlain.problem.empty())
        return "plain: " + fromPlain.problem;

    WriteBytes(packed, GzipBytes(bytes, 1));
    const CCheckedLoad fromGzip = bench.checker.Load(packed, false);
    if (!fromGzip.problem.empty())
        return "gzip: " + fromGzip.problem;
    if (std::string problem = Compare(fromPlain, fromGzip, "gzip"); !problem.empty())
        return problem;

    WriteBytes(packed, bytes);
    const CCheckedLoad transparent = bench.checker.Load(packed, false);
    if (!transparent.problem.empty())
        return "transparent: " + transparent.problem;
    return Compare(fromPlain, transparent, "transparent");
}
