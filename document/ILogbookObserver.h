#pragma once

#include <cstddef>

// Told by the document after each change of its jumps or settings, on the document's thread.
// Indexes are positions in the list order (ascending number) after the change has been made;
// a removal gives the positions the jumps had before it. Every default does nothing, so an
// observer overrides only what it keeps.
class ILogbookObserver
{
public:
    virtual ~ILogbookObserver() = default;

    // count jumps now stand at first .. first + count - 1.
    virtual void JumpsInserted(std::size_t /*first*/, std::size_t /*count*/) {}
    // The jumps at first .. first + count - 1 changed in place (their positions did not).
    virtual void JumpsChanged(std::size_t /*first*/, std::size_t /*count*/) {}
    // The jumps that stood at first .. first + count - 1 are gone.
    virtual void JumpsRemoved(std::size_t /*first*/, std::size_t /*count*/) {}
    // A changed jump moved from position from to position to (its number changed). The jumps
    // between shift by one; JumpsChanged(to, 1) follows for the jump's new values.
    virtual void JumpMoved(std::size_t /*from*/, std::size_t /*to*/) {}
    // The settings (profile, rigs, preferences) were replaced or changed.
    virtual void SettingsChanged() {}
    // Everything may have changed: a load, New, Clear. Rebuild from the document.
    virtual void LogbookReset() {}
};
