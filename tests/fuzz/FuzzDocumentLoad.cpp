#include "CLoadChecker.h"
#include "FuzzTargets.h"

std::string FuzzDocumentLoad(const std::uint8_t* data, std::size_t size)
{
    // One folder and one document for the whole fuzzing process: the document's reuse across
    // thousands of failed and successful loads is part of what is tested.
    static CScratchFolder folder("fuzz-load");
    static CLoadChecker checker(folder);
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::string plain = folder / "input.tvl";
    const std::string packed = folder / "input.tvz";
    WriteBytes(plain, bytes);

    // A gzip stream (perhaps damaged) is loaded as it is; the same bytes are also parsed plain.
    if (size >= 2 && data[0] == 0x1F && data[1] == 0x8B) {
        WriteBytes(packed, bytes);
        const CCheckedLoad load = checker.Load(packed, true);
        if (!load.problem.empty())
            return "gzip: " + load.problem;
        const CCheckedLoad raw = checker.Load(plain, false);
        return raw.problem.empty() ? std::string() : "gzip bytes as plain: " + raw.problem;
    }

    // Any other bytes are the XML text: plain, compressed, and in the gzip container's
    // transparent reading of an uncompressed file must all load the same way.
    const CCheckedLoad fromPlain = checker.Load(plain, true);
    if (!fromPlain.problem.empty())
        return "plain: " + fromPlain.problem;
    for (const bool compress : {true, false}) {
        const std::string what = compress ? "gzip: " : "transparent: ";
        compress ? WriteGzip(packed, bytes) : WriteBytes(packed, bytes);
        const CCheckedLoad load = checker.Load(packed, false);
        if (!load.problem.empty())
            return what + load.problem;
        if (load.ok != fromPlain.ok || load.message != fromPlain.message || load.jumps != fromPlain.jumps)
            return what + "the result, message or number of jumps differs from the plain file's";
    }
    return {};
}
