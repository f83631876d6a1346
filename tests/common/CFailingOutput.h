#pragma once

#include "xml/IXmlOutput.h"

#include <algorithm>
#include <cstddef>
#include <memory>

// Passes bytes on to another output until a budget of bytes or of write calls is spent, then
// fails every write like a full disk; it can also fail its close, the last flush. The write
// calls are counted where the test can read them after the output is gone.
class CFailingOutput final : public IXmlOutput
{
public:
    struct Budget
    {
        std::size_t bytes = static_cast<std::size_t>(-1);
        int writes = 1 << 30;
        bool failClose = false;
    };

    CFailingOutput(std::unique_ptr<IXmlOutput> inner, Budget budget, int* writes = nullptr)
        : m_inner(std::move(inner)), m_budget(budget), m_writes(writes != nullptr ? writes : &m_ownCount)
    {
    }
    bool Write(const char* data, std::size_t size) override
    {
        const std::size_t take = std::min(size, m_budget.bytes);
        m_budget.bytes -= take;
        return (*m_writes)++ < m_budget.writes && m_inner && m_inner->Write(data, take) && take == size;
    }
    bool Close() override { return m_inner && m_inner->Close() && !m_budget.failClose; }

private:
    std::unique_ptr<IXmlOutput> m_inner;
    Budget m_budget;
    int m_ownCount = 0;
    int* m_writes;
};
