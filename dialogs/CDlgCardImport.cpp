#include "dialogs/CDlgCardImport.h"

#include "controls/IMessageSink.h"
#include "dialogs/DialogText.h"
#include "editing/CCardImportEdit.h"
#include "resources/StringTable.h"
#include "translations/MessageText.h"
#include "units/CUnitSettings.h"
#include "units/DurationText.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QScrollArea>
#include <QTabWidget>
#include <QVBoxLayout>

#include <cmath>

namespace {

QScrollArea* Scrolling(QWidget* inner)
{
    auto* scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidget(inner);
    return scroll;
}

} // namespace

CDlgCardImport::CDlgCardImport(CCardImportEdit& edit, const std::vector<CCardTrack>& skipped,
                               const CUnitSettings& units, IMessageSink* messages, QWidget* parent)
    : QDialog(parent), m_edit(edit), m_messages(messages)
{
    setObjectName(QStringLiteral("dlgCardImport"));
    setWindowTitle(tr("Import tracks"));
    const QLocale locale;
    const QString heightUnit = DialogText::ToQt(units.HeightLabel());

    auto* tracks = new QWidget;
    auto* trackLayout = new QVBoxLayout(tracks);
    const auto& rows = m_edit.Rows();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const CCardImportEdit::Row& row = rows[i];
        const CImportedJump& jump = row.track.import.jump;
        const CDateTime& when = jump.exitTime.dateTime;
        const QString day = tr("%1 %2")
                                .arg(locale.toString(DialogText::ToQDate(when), QLocale::ShortFormat))
                                .arg(QStringLiteral("%1:%2")
                                         .arg(when.Hour(), 2, 10, QLatin1Char('0'))
                                         .arg(when.Minute(), 2, 10, QLatin1Char('0')));
        const QString details = tr("exit %1 %2 \u00b7 freefall %3 \u00b7 %4")
                                    .arg(locale.toString(std::lround(units.HeightToDisplay(jump.fallrate.exitHeight))))
                                    .arg(heightUnit)
                                    .arg(DialogText::ToQt(DurationToText(jump.fallrate.freefallTime, true)))
                                    .arg(DialogText::ToQt(row.track.path.filename().string()));
        auto* tick = new QCheckBox(day, tracks);
        tick->setObjectName(QStringLiteral("track_%1").arg(i));
        tick->setChecked(row.ticked);
        auto* into = new QComboBox(tracks);
        into->setObjectName(QStringLiteral("into_%1").arg(i));
        into->addItem(tr("New jump"), 0);
        for (int number : row.candidates)
            into->addItem(tr("Into jump %1 (same day, no recording)").arg(number), number);
        into->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        into->setMinimumContentsLength(10);
        into->setMaximumWidth(420);
        into->setEnabled(row.candidates.size() > 0);
        auto* about = new QLabel(details, tracks);
        about->setWordWrap(true);
        about->setContentsMargins(24, 0, 0, 0);
        connect(tick, &QCheckBox::toggled, this, [this, i](bool on) { m_edit.SetTicked(i, on); });
        connect(into, &QComboBox::currentIndexChanged, this,
                [this, i, into](int index) { m_edit.SetInto(i, into->itemData(index).toInt()); });
        trackLayout->addWidget(tick);
        trackLayout->addWidget(about);
        auto* line = new QHBoxLayout;
        line->setContentsMargins(24, 0, 0, 6);
        line->addWidget(into, 1);
        trackLayout->addLayout(line);
        m_ticks.push_back(tick);
        m_into.push_back(into);
    }
    if (rows.empty())
        trackLayout->addWidget(new QLabel(tr("No new jump was found."), tracks));
    trackLayout->addStretch(1);

    auto* others = new QWidget;
    auto* otherLayout = new QVBoxLayout(others);
    for (const CCardTrack& track : skipped) {
        auto* label = new QLabel(DialogText::ToQt(track.path.filename().string()) + QStringLiteral(": ") +
                                     MessageText::Text(track.SkipReason()),
                                 others);
        label->setWordWrap(true);
        otherLayout->addWidget(label);
    }
    otherLayout->addStretch(1);

    m_tabs = new QTabWidget(this);
    m_tabs->setObjectName(QStringLiteral("cardTabs"));
    m_tabs->addTab(Scrolling(tracks), tr("Jumps (%1)").arg(rows.size()));
    m_tabs->addTab(Scrolling(others), tr("Skipped (%1)").arg(skipped.size()));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("Import"));
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("importButton"));
    connect(buttons, &QDialogButtonBox::accepted, this, &CDlgCardImport::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs, 1);
    layout->addWidget(buttons);
    resize(600, 480);
}

void CDlgCardImport::accept()
{
    const CCheckResult check = m_edit.Check();
    if (!check) {
        if (m_messages)
            m_messages->Warning(DialogText::CheckMessage(check));
        m_tabs->setCurrentIndex(0);
        if (check.field >= 0 && static_cast<std::size_t>(check.field) < m_into.size())
            m_into[static_cast<std::size_t>(check.field)]->setFocus();
        return;
    }
    QDialog::accept();
}
