#include "document/SealTouch.h"

#include "document/CLogbookDoc.h"

std::size_t CountSignedJumpsTouched(const CLogbookDoc& doc, const CLogbookSettings& next,
                                    const std::vector<int>* newPositions)
{
    const CLogbookSettings& now = doc.GetSettings();
    const CEquipmentList& oldRigs = now.GetEquipmentList();
    const CEquipmentList& newRigs = next.GetEquipmentList();
    std::size_t touched = 0;
    for (const auto& jump : doc.GetJumps()) {
        if (!jump->IsSigned())
            continue;
        const std::string before = jump->GetEquipmentText(oldRigs);
        std::string after;
        const CJumpEquipmentRef& ref = jump->GetEquipmentRef();
        const bool names = ref.mode == CJumpEquipmentRef::ByIndex && ref.index >= 0 &&
                           static_cast<std::size_t>(ref.index) < oldRigs.GetCount();
        if (newPositions && names) {
            const auto from = static_cast<std::size_t>(ref.index);
            const int to = from < newPositions->size() ? (*newPositions)[from] : -1;
            if (to < 0)
                after = before;
            else if (static_cast<std::size_t>(to) < newRigs.GetCount())
                after = newRigs.Get(static_cast<std::size_t>(to)).GetDisplayText();
        } else {
            after = jump->GetEquipmentText(newRigs);
        }
        if (before != after || jump->FreefallTime(now) != jump->FreefallTime(next))
            ++touched;
    }
    return touched;
}
