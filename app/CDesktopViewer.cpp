#include "app/CDesktopViewer.h"

#include <QDesktopServices>
#include <QUrl>

bool CDesktopViewer::Open(const QString& path)
{
    // A local file URL only: the path has been checked to be a picture inside the logbook's
    // folder, so the desktop hands it to its picture viewer and never runs it.
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}
