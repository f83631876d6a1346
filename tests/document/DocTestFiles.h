#pragma once

#include "document/IClock.h"
#include "model/CJump.h"
#include "tests/common/CScratchFolder.h"
#include "xml/IXmlOutput.h"

#include <cstdio>
#include <memory>

// The document tests' fixed "now" and a jump with a drop zone.
inline const CFixedClock kClock(CDateTime(2010, 1, 2, 3, 4, 5));

inline std::unique_ptr<CJump> MakeJump(int number, const std::string& place)
{
    auto jump = std::make_unique<CJump>(number, CZonedDateTime{CDateTime(2008, 5, 17, 14, 3, 0), 0},
                                        CDateTime(2008, 5, 17, 14, 3, 0));
    jump->SetPlace(place);
    return jump;
}

inline bool Exists(const std::string& path)
{
    return std::filesystem::exists(path);
}

// An output that writes the real temporary file but fails like a full disk after a byte
// budget, or fails when it is closed (the last flush).
class CFailingFileOutput final : public IXmlOutput
{
public:
    CFailingFileOutput(const std::string& path, std::size_t budget, bool failClose)
        : m_file(std::fopen(path.c_str(), "wb")), m_budget(budget), m_failClose(failClose)
    {
    }
    ~CFailingFileOutput() override
    {
        if (m_file)
            std::fclose(m_file);
    }
    bool Write(const char* data, std::size_t size) override
    {
        if (!m_file)
            return false;
        const std::size_t take = size < m_budget ? size : m_budget;
        std::fwrite(data, 1, take, m_file);
        m_budget -= take;
        return take == size;
    }
    bool Close() override
    {
        const bool ok = m_file && std::fclose(m_file) == 0;
        m_file = nullptr;
        return ok && !m_failClose;
    }

private:
    std::FILE* m_file;
    std::size_t m_budget;
    bool m_failClose;
};
