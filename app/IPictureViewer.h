#pragma once

#include <QString>

// Shows a jump's picture. The window program hands it to the desktop's picture viewer
// (CDesktopViewer); tests record the path.
class IPictureViewer
{
public:
    // Implementations are owned by the program or the test.
    virtual ~IPictureViewer() = default;
    // Opens the picture file (already checked by CPictureGuard); false when nothing opened it.
    virtual bool Open(const QString& path) = 0;
};
