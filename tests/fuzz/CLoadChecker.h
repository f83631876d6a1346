#pragma once

#include "FuzzFiles.h"
#include "document/CLogbookDoc.h"
#include "document/IClock.h"
#include "resources/StringTable.h"

#include <filesystem>
#include <system_error>

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
    explicit CLoadChecker(CScratchFolder& folder) : m_folder(folder)
    {
        WriteBytes(m_knownPath, "<?xml version=\"1.0\" encoding=\"UTF-8\" ?><tvl version=\"1.2\"><settings>"
                                "<previousJumps>3</previousJumps></settings><log size=\"1\"><jump n=\"7\" "
                                "ts=\"2008-05-17T14:03:00+02\" mod=\"2008-05-17T20:00:00Z\"><dz>Known</dz>"
                                "<exit>4000</exit><open>1000</open></jump></log></tvl>");
    }

    // A load's message in English, as the tool prints it.
    static std::string English(const CMessage& message)
    {
        return StringTable::Format(message.id, message.arg1, message.arg2);
    }

    // Loads path (its extension decides the container) and checks the result.
    CCheckedLoad Load(const std::string& path, bool roundTrip)
    {
        const std::string before = ReadBytes(path);
        const auto filesBefore = m_folder.List();
        const CLoadResult result = m_doc.Load(path);
        CCheckedLoad load{result.ok, English(result.message), m_doc.GetJumpCount(), {}, {}};
        if (ReadBytes(path) != before)
            load.problem = "the load changed the file it read";
        else if (m_folder.List() != filesBefore)
            load.problem = "the load created or removed a file";
        else if (!IsValidUtf8(load.message))
            load.problem = "the message is not valid UTF-8";
        else
            load.problem = load.ok ? CheckLoaded(path, roundTrip, load.saved) : CheckFailed(load);
        return load;
    }

private:
    // The checks after a failed load; returns the first broken property.
    std::string CheckFailed(const CCheckedLoad& load)
    {
        if (load.jumps != 0 || m_doc.HasPath() || m_doc.IsModified())
            return "a failed load left jumps, a path or the modified flag";
        if (!(m_doc.GetSettings() == CLogbookSettings()))
            return "a failed load left settings behind";
        if (m_doc.GetTotalFreefallTime() != 0 || m_doc.GetTotalFreefallDistance() != 0 ||
            m_doc.GetTotalCanopyDistance() != 0)
            return "a failed load left totals behind";
        // The known logbook, of one jump, shows the document still works.
        const CLoadResult known = m_doc.Load(m_knownPath);
        if (!known.ok || m_doc.GetJumpCount() != 1 || m_doc.GetJumps()[0]->GetNumber() != 7 ||
            m_doc.GetSettings().GetPreviousJumps() != 3)
            return "after a failed load the document does not load a known logbook";
        m_doc.Clear();
        return {};
    }

    // The checks after a successful load; keeps the bytes first saved in saved.
    std::string CheckLoaded(const std::string& path, bool roundTrip, std::string& saved)
    {
        if (!m_doc.HasPath() || m_doc.GetPath() != path || m_doc.IsModified())
            return "a successful load did not keep the path or left the modified flag";
        const auto& jumps = m_doc.GetJumps();
        for (std::size_t i = 1; i < jumps.size(); ++i)
            if (jumps[i - 1]->GetNumber() > jumps[i]->GetNumber())
                return "the jumps are not sorted by number";
        if (!roundTrip)
            return {};

        // The first save may normalise what the file held in an unusual form (samples of another
        // kind than their recording, say); from then on a save and a reload change nothing.
        const std::string names[3] = {m_folder / "saved1.tvl", m_folder / "saved2.tvl", m_folder / "saved3.tvl"};
        auto cleanUp = [&]() {
            std::error_code ec;
            for (const std::string& name : names) {
                std::filesystem::remove(name, ec);
                std::filesystem::remove(name.substr(0, name.size() - 3) + "bak", ec);
            }
        };
        cleanUp();
        std::string problem;
        if (!m_doc.Save(names[0]))
            problem = "a loaded logbook cannot be saved";
        for (int round = 1; round <= 2 && problem.empty(); ++round) {
            CLogbookDoc reloaded(nullptr, &m_clock);
            const CLoadResult again = reloaded.Load(names[round - 1]);
            if (!again.ok)
                problem = "a saved logbook does not load again: " + English(again.message).substr(0, 300);
            else if (reloaded.GetJumpCount() != m_doc.GetJumpCount())
                problem = "saving and loading again changed the number of jumps";
            else if (!reloaded.Save(names[round]))
                problem = "a reloaded logbook cannot be saved";
        }
        if (problem.empty()) {
            saved = ReadBytes(names[0]);
            if (ReadBytes(names[1]) != ReadBytes(names[2]))
                problem = "saving a reloaded logbook again changes the file";
        }
        cleanUp();
        return problem;
    }

    CScratchFolder& m_folder;
    CFixedClock m_clock{CDateTime(2009, 3, 1, 10, 0, 0)};
    CLogbookDoc m_doc{nullptr, &m_clock};
    std::string m_knownPath = m_folder / "known.tvl";
};
