#include "translations/MessageText.h"

#include "bridge/CoreText.h"
#include "resources/StringTable.h"

#include <QByteArray>
#include <QCoreApplication>

#include <array>
#include <optional>
#include <string>

namespace MessageText {
namespace {

using CoreText::ToQt;

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

// What a composed text holds in place of the message's placeholders, and what follows it.
struct Parts
{
    std::array<std::string_view, 2> args;
    std::string_view tail;
};

// Matches the English message against the composed text piece by piece: literal pieces must be
// there in order, each placeholder takes the text up to the next piece. With keepTail the
// composed text may go on after the message; otherwise it must end where the message ends.
std::optional<Parts> Match(std::string_view message, std::string_view text, bool keepTail)
{
    Parts parts;
    std::size_t at = 0;
    int pending = 0; // the placeholder waiting for the next literal piece, 0 for none
    std::size_t start = 0;
    const auto literal = [&](std::string_view piece, bool last) -> bool {
        std::size_t found;
        if (pending == 0)
            found = text.compare(at, piece.size(), piece) == 0 ? at : std::string_view::npos;
        else if (last && !keepTail)
            found = text.size() >= at + piece.size() && text.ends_with(piece) ? text.size() - piece.size()
                                                                              : std::string_view::npos;
        else
            found = text.find(piece, at);
        if (found == std::string_view::npos)
            return false;
        if (pending != 0)
            parts.args[static_cast<std::size_t>(pending - 1)] = text.substr(at, found - at);
        pending = 0;
        at = found + piece.size();
        return true;
    };
    for (std::size_t i = 0; i < message.size(); ++i) {
        if (message[i] != '%' || i + 1 >= message.size() || (message[i + 1] != '1' && message[i + 1] != '2'))
            continue;
        const std::string_view piece = message.substr(start, i - start);
        if (pending != 0 && piece.empty())
            return std::nullopt; // two placeholders side by side cannot be told apart
        if (!literal(piece, false))
            return std::nullopt;
        pending = message[i + 1] - '0';
        start = i + 2;
        ++i;
    }
    const std::string_view last = message.substr(start);
    if (pending != 0 && last.empty()) {
        // A placeholder at the end takes the rest.
        parts.args[static_cast<std::size_t>(pending - 1)] = text.substr(at);
        at = text.size();
    } else if (!literal(last, true)) {
        return std::nullopt;
    }
    if (at != text.size() && !keepTail)
        return std::nullopt;
    parts.tail = text.substr(at);
    return parts;
}

QString Translated(int id, const Parts& parts)
{
    return Substitute(Text(id), ToQt(parts.args[0]), ToQt(parts.args[1])) + ToQt(parts.tail);
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

QString Translate(std::string_view composed, int id)
{
    if (id != 0) {
        if (const auto parts = Match(StringTable::Text(id), composed, true); parts && StringTable::Has(id))
            return Translated(id, *parts);
        return ToQt(composed);
    }
    for (const int each : StringTable::Ids())
        if (const auto parts = Match(StringTable::Text(each), composed, false))
            return Translated(each, *parts);
    return ToQt(composed);
}

} // namespace MessageText
