#pragma once

#include "model/CJump.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace JumpOrder {

using Jumps = std::vector<std::unique_ptr<CJump>>;

// The position a jump with this number takes: before the first jump whose number is greater,
// so equal numbers keep the order they came in.
inline std::size_t InsertPosition(const Jumps& jumps, int number)
{
    auto at = std::upper_bound(jumps.begin(), jumps.end(), number,
                               [](int n, const std::unique_ptr<CJump>& other) { return n < other->GetNumber(); });
    return static_cast<std::size_t>(at - jumps.begin());
}

// Inserts the jump at its position; returns it.
inline CJump* InsertSorted(Jumps& jumps, std::unique_ptr<CJump> jump)
{
    const std::size_t at = InsertPosition(jumps, jump->GetNumber());
    return jumps.insert(jumps.begin() + static_cast<std::ptrdiff_t>(at), std::move(jump))->get();
}

} // namespace JumpOrder
