#pragma once

#include "document/IClock.h"
#include "model/CJump.h"
#include "tests/common/CFailingOutput.h"
#include "tests/common/CScratchFolder.h"
#include "xml/CXmlFileOutput.h"

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

// The real temporary file, failing like a full disk after a byte budget, or failing when it is
// closed (the last flush).
inline std::unique_ptr<IXmlOutput> FailingFile(const std::string& path, std::size_t budget, bool failClose = false)
{
    return std::make_unique<CFailingOutput>(CXmlFileOutput::Create(path),
                                            CFailingOutput::Budget{budget, 1 << 30, failClose});
}
