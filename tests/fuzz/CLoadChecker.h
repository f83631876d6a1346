#pragma once

#include "document/CLogbookDoc.h"
#include "document/IClock.h"
#include "tests/common/CScratchFolder.h"

#include <cstddef>
#include <string>

// What one checked load found.
struct CCheckedLoad
{
    bool ok = false;
    std::string message;
    std::size_t jumps = 0;
    std::string problem; // the first broken property; empty when all held
    std::string saved;   // with a round trip after a successful load: the bytes first saved
};

// Loads files into one long-lived document and checks what every load must guarantee, whatever
// the bytes: the file itself and its folder are left as they were; a failed load leaves an empty
// document that still loads a known logbook afterwards; a successful load holds sorted jumps and,
// when asked, survives a save and a reload with nothing lost, the second save equal to the first.
class CLoadChecker
{
public:
    // Writes its known logbook and its saves into folder.
    explicit CLoadChecker(CScratchFolder& folder);

    // Loads path (its extension decides the container) and checks the result.
    CCheckedLoad Load(const std::string& path, bool roundTrip);

private:
    // The checks after a failed load; returns the first broken property.
    std::string CheckFailed(const CCheckedLoad& load);
    // The checks after a successful load; keeps the bytes first saved in saved.
    std::string CheckLoaded(const std::string& path, bool roundTrip, std::string& saved);

    CScratchFolder& m_folder;
    CFixedClock m_clock;
    CLogbookDoc m_doc;
    std::string m_knownPath;
};
