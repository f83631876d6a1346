#pragma once

#include "app/IPictureViewer.h"

#include <QStringList>

// Records the pictures the program asks the desktop to show.
class CRecordingViewer final : public IPictureViewer
{
public:
    bool Open(const QString& path) override
    {
        opened.append(path);
        return true;
    }

    QStringList opened;
};
