#include "translations/MessageText.h"

#include "bridge/CoreText.h"
#include "resources/StringTable.h"

#include <QByteArray>
#include <QCoreApplication>

#include <string>

namespace MessageText {
namespace {

// Every "%1" and "%2" of text replaced, once, by the argument; the arguments are not searched.
QString Substitute(const QString& text, const QString& arg1, const QString& arg2)
{
    QString out;
    out.reserve(text.size() + arg1.size() + arg2.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == QLatin1Char('%') && i + 1 < text.size() &&
            (text[i + 1] == QLatin1Char('1') || text[i + 1] == QLatin1Char('2'))) {
            out += text[i + 1] == QLatin1Char('1') ? arg1 : arg2;
            ++i;
        } else {
            out += text[i];
        }
    }
    return out;
}

// A message's text in the user's language as UTF-8.
std::string Utf8Text(int id)
{
    return Text(id).toStdString();
}

// Puts the text's first letter in capitals; bytes that do not begin a letter stay as they are.
void CapitaliseFirst(std::string& text)
{
    if (text.empty())
        return;
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t size = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (size > text.size())
        return;
    const QString first = QString::fromUtf8(text.data(), static_cast<qsizetype>(size));
    const QString upper = first.toUpper();
    if (upper != first)
        text.replace(0, size, upper.toStdString());
}

} // namespace

QString Text(int id)
{
    const std::string english(StringTable::Text(id));
    if (english.empty())
        return {};
    return QCoreApplication::translate(kContext, english.c_str(), QByteArray::number(id).constData());
}

QString Format(int id, const QString& arg1, const QString& arg2)
{
    return Substitute(Text(id), arg1, arg2);
}

std::string Utf8(const CMessage& message)
{
    std::string text = StringTable::Substitute(Utf8Text(message.id), message.arg1, message.arg2);
    if (message.line > 0)
        return StringTable::Substitute(Utf8Text(StringTable::IDS_TRACK_LINE), std::to_string(message.line), text);
    CapitaliseFirst(text);
    return text;
}

QString Text(const CMessage& message)
{
    return CoreText::ToQt(Utf8(message));
}

} // namespace MessageText
