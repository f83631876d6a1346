#include "bridge/CorePaths.h"

#include <QFile>
#include <QFileInfo>

namespace CorePaths {

std::string LocalPath(const QString& path)
{
    return QFile::encodeName(path).toStdString();
}

std::string AbsoluteLocalPath(const QString& path)
{
    return LocalPath(QFileInfo(path).absoluteFilePath());
}

QString DisplayPath(std::string_view path)
{
    return QFile::decodeName(QByteArray(path.data(), static_cast<qsizetype>(path.size())));
}

} // namespace CorePaths
