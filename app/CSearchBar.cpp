#include "app/CSearchBar.h"

#include "app/CJumpTableModel.h"
#include "bridge/CoreText.h"
#include "query/CQueryParser.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QScreen>
#include <QToolButton>

#include <span>
#include <string_view>

namespace {

using CoreText::ToQt;

// What each typed term finds, in the user's language.
struct TermText
{
    std::string_view term;
    const char* description;
};
constexpr TermText kTermTexts[] = {
    {"dz:", QT_TRANSLATE_NOOP("CSearchBar", "drop zone")},
    {"ac:", QT_TRANSLATE_NOOP("CSearchBar", "aircraft")},
    {"type:", QT_TRANSLATE_NOOP("CSearchBar", "jump type")},
    {"team:", QT_TRANSLATE_NOOP("CSearchBar", "team")},
    {"signer:", QT_TRANSLATE_NOOP("CSearchBar", "who signed")},
    {"rig:", QT_TRANSLATE_NOOP("CSearchBar", "rig by number in brackets, or by its text")},
    {"kind:", QT_TRANSLATE_NOOP("CSearchBar", "fall rate: Standard, Vertical, Custom, Manual, Import")},
    {"n:", QT_TRANSLATE_NOOP("CSearchBar", "jump numbers; ranges may be open: ..50, 400..")},
    {"date:", QT_TRANSLATE_NOOP("CSearchBar", "a day, month or year, or a range of them")},
    {"year:", QT_TRANSLATE_NOOP("CSearchBar", "a year or a range of years")},
    {"exit:", QT_TRANSLATE_NOOP("CSearchBar", "exit height in the display units")},
    {"open:", QT_TRANSLATE_NOOP("CSearchBar", "opening height in the display units")},
    {"ff:", QT_TRANSLATE_NOOP("CSearchBar", "freefall seconds (or M:SS)")},
    {"signed:", QT_TRANSLATE_NOOP("CSearchBar", "signed or not, and the seal: yes, no, sealed, changed, unsealed")},
    {"has:", QT_TRANSLATE_NOOP("CSearchBar", "recording, note, picture, video, wind, malfunction")},
};

QString Describe(const CQueryParser::TermHelp& help)
{
    for (const TermText& text : kTermTexts)
        if (text.term == help.term)
            return QCoreApplication::translate("CSearchBar", text.description);
    return ToQt(help.description);
}

QString Reason(QueryProblem problem)
{
    switch (problem) {
    case QueryProblem::None:
        break;
    case QueryProblem::UnknownTerm:
        return CSearchBar::tr("no such term");
    case QueryProblem::NothingToFind:
        return CSearchBar::tr("nothing to look for");
    case QueryProblem::NotANumber:
        return CSearchBar::tr("not a whole number");
    case QueryProblem::NumberTooLarge:
        return CSearchBar::tr("number too large");
    case QueryProblem::NotADate:
        return CSearchBar::tr("not a date (2024, 2024-05 or 2024-05-17)");
    case QueryProblem::NoSuchMonth:
        return CSearchBar::tr("no such month");
    case QueryProblem::NoSuchDay:
        return CSearchBar::tr("no such day");
    case QueryProblem::NotAYear:
        return CSearchBar::tr("not a year");
    case QueryProblem::NotADuration:
        return CSearchBar::tr("not a number of seconds or M:SS");
    case QueryProblem::RangeWithoutEnd:
        return CSearchBar::tr("a range needs a start or an end");
    case QueryProblem::RangeReversed:
        return CSearchBar::tr("the range ends before it starts");
    case QueryProblem::NotYesOrNo:
        return CSearchBar::tr("yes or no");
    case QueryProblem::UnknownHas:
        return CSearchBar::tr("recording, note, picture, video, wind or malfunction");
    case QueryProblem::UnknownKind:
        return CSearchBar::tr("Standard, Vertical, Custom, Manual or Import");
    }
    return ToQt(QueryProblemText(problem));
}

} // namespace

CSearchBar::CSearchBar(const CUnitSettings& units, QWidget* parent)
    : QWidget(parent), m_units(units), m_grid(new QGridLayout(this))
{
    setObjectName(QStringLiteral("searchBar"));
    m_grid->setContentsMargins(0, 0, 0, 0);
    m_grid->setHorizontalSpacing(4);
    m_grid->setVerticalSpacing(2);

    m_field = new QLineEdit(this);
    m_field->setObjectName(QStringLiteral("searchField"));
    m_field->setPlaceholderText(tr("Search jumps"));
    m_field->setToolTip(tr("Words, \"phrases\" and terms such as dz:Eloy n:100..200 -signed:yes (Ctrl+F)"));
    m_field->setAccessibleName(tr("Search jumps"));
    m_field->setClearButtonEnabled(true);
    // The platform's on-screen keyboard, without capitals forced on the terms.
    m_field->setInputMethodHints(Qt::ImhNoAutoUppercase | Qt::ImhNoPredictiveText);
    m_field->installEventFilter(this);
    connect(m_field, &QLineEdit::textChanged, this, &CSearchBar::ReadText);

    m_termsButton = new QToolButton(this);
    m_termsButton->setObjectName(QStringLiteral("searchTermsButton"));
    // The menu's arrow follows the text instead of lying over its end.
    m_termsButton->setText(tr("Terms") + QStringLiteral(" \u25BE"));
    m_termsButton->setStyleSheet(QStringLiteral("QToolButton::menu-indicator { image: none; width: 0px; }"));
    m_termsButton->setToolTip(tr("Insert a search term"));
    m_termsButton->setPopupMode(QToolButton::InstantPopup);
    auto* menu = new QMenu(m_termsButton);
    menu->setObjectName(QStringLiteral("searchTermsMenu"));
    menu->setToolTipsVisible(true);
    for (const CQueryParser::TermHelp& help : CQueryParser::Terms()) {
        const QString term = ToQt(help.term);
        QAction* action = menu->addAction(term);
        action->setData(term);
        action->setToolTip(ToQt(help.example) + QStringLiteral(": ") + Describe(help));
        connect(action, &QAction::triggered, this, [this, term] { InsertTerm(term); });
    }
    m_termsButton->setMenu(menu);
    connect(menu, &QMenu::aboutToShow, this,
            [this] { FitTermsMenu(screen() ? screen()->availableGeometry().width() : 0); });

    m_count = new QLabel(this);
    m_count->setObjectName(QStringLiteral("searchCount"));
    m_message = new QLabel(this);
    m_message->setObjectName(QStringLiteral("searchMessage"));
    m_message->setWordWrap(true);
    m_message->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    QPalette palette = m_message->palette();
    palette.setColor(QPalette::WindowText, QColor(176, 0, 32));
    m_message->setPalette(palette);
    m_message->hide();

    m_grid->addWidget(m_field, 0, 0);
    m_grid->addWidget(m_termsButton, 0, 1);
    m_grid->setColumnStretch(0, 1);
    PlaceCount();
}

QString CSearchBar::Text() const
{
    return m_field->text();
}

void CSearchBar::SetText(const QString& text)
{
    m_field->setText(text);
}

void CSearchBar::FocusField()
{
    m_field->setFocus(Qt::ShortcutFocusReason);
    m_field->selectAll();
}

void CSearchBar::SetCount(std::size_t shown, std::size_t total)
{
    const QLocale locale;
    const QString all = locale.toString(static_cast<qulonglong>(total));
    if (!m_query.IsEmpty())
        m_count->setText(tr("%1 of %2 jumps").arg(locale.toString(static_cast<qulonglong>(shown)), all));
    else
        m_count->setText(total == 1 ? tr("1 jump") : tr("%1 jumps").arg(all));
    PlaceCount();
}

void CSearchBar::CountRowsOf(const CJumpTableModel* model)
{
    const auto count = [this, model] { SetCount(static_cast<std::size_t>(model->rowCount()), model->FilteredCount()); };
    for (auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(model, signal, this, count);
    connect(model, &QAbstractItemModel::modelReset, this, count);
    count();
}

QString CSearchBar::Message() const
{
    return m_message->isVisibleTo(this) ? m_message->text() : QString();
}

QString CSearchBar::CountText() const
{
    return m_count->text();
}

void CSearchBar::UnitsChanged()
{
    if (m_query.IsEmpty())
        return;
    // Another query than any before, so that the new one is told.
    m_query = CQuery();
    ReadText();
}

QString CSearchBar::ErrorText(const CQueryError& error)
{
    return ToQt(error.term) + QStringLiteral(": ") + Reason(error.problem);
}

void CSearchBar::ReadText()
{
    const QByteArray text = m_field->text().toUtf8();
    const CQueryParseResult result = CQueryParser::Parse(std::string_view(text.constData(), text.size()), m_units);
    if (!result.Ok()) {
        // The list keeps the last query that could be read.
        m_message->setText(ErrorText(result.error));
        m_message->show();
        return;
    }
    m_message->hide();
    m_message->clear();
    if (result.query.terms == m_query.terms)
        return;
    m_query = result.query;
    emit queryChanged();
}

QMenu* CSearchBar::FitTermsMenu(int room)
{
    // What a term finds stays in the item's tool tip when only the example fits.
    QMenu* menu = m_termsButton->menu();
    const std::span<const CQueryParser::TermHelp> terms = CQueryParser::Terms();
    for (const bool described : {true, false}) {
        const QList<QAction*> actions = menu->actions();
        for (qsizetype i = 0; i < actions.size() && i < static_cast<qsizetype>(terms.size()); ++i) {
            const CQueryParser::TermHelp& help = terms[static_cast<std::size_t>(i)];
            actions[i]->setText(described ? ToQt(help.term) + QStringLiteral("  ") + Describe(help)
                                          : ToQt(help.example));
        }
        menu->adjustSize();
        if (room <= 0 || menu->sizeHint().width() <= room)
            break;
    }
    return menu;
}

void CSearchBar::InsertTerm(const QString& term)
{
    const int cursor = m_field->cursorPosition();
    const QString text = m_field->text();
    // A term starts a word of its own.
    const bool blank = cursor > 0 && !text.at(cursor - 1).isSpace();
    m_field->insert(blank ? QLatin1Char(' ') + term : term);
    m_field->setFocus(Qt::OtherFocusReason);
}

bool CSearchBar::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_field && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape && !m_field->text().isEmpty()) {
        m_field->clear();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void CSearchBar::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    PlaceCount();
}

void CSearchBar::PlaceCount()
{
    // Beside the field while the field keeps room for a few words, else on a line of its own.
    const int needed =
        m_termsButton->sizeHint().width() + m_count->sizeHint().width() + 20 * fontMetrics().averageCharWidth();
    const bool beside = width() <= 0 || width() >= needed;
    if (beside == m_countBeside && m_grid->indexOf(m_count) >= 0 && m_grid->indexOf(m_message) >= 0)
        return;
    m_countBeside = beside;
    m_grid->removeWidget(m_count);
    m_grid->removeWidget(m_message);
    if (beside) {
        m_grid->addWidget(m_count, 0, 2);
        m_grid->addWidget(m_message, 1, 0, 1, 3);
    } else {
        m_grid->addWidget(m_count, 1, 0, 1, 2);
        m_grid->addWidget(m_message, 2, 0, 1, 2);
    }
}
