#pragma once

#include "app/IPictureViewer.h"

// Opens a picture with the desktop's default viewer for its file type.
class CDesktopViewer final : public IPictureViewer
{
public:
    // Hands the file's URL to the desktop; false when no viewer took it.
    bool Open(const QString& path) override;
};
