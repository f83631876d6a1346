#include "controls/CKqTimeField.h"

#include "controls/CKqPropertyPage.h"
#include "controls/CTimePadDlg.h"
#include "controls/IDialogRunner.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QRegularExpression>
#include <QToolButton>

CKqTimeField::CKqTimeField(const QString& padTitle, QWidget* parent) : QWidget(parent), m_padTitle(padTitle)
{
    m_edit = new QLineEdit(this);
    m_edit->setPlaceholderText(QStringLiteral("hh:mm"));
    m_edit->setMaxLength(8);
    // A time is never cut short, however narrow the row.
    m_edit->setMinimumWidth(m_edit->fontMetrics().horizontalAdvance(QStringLiteral("00:00")) + 14);
    m_pad = new QToolButton(this);
    m_pad->setText(QStringLiteral("\u2026"));
    m_pad->setToolTip(tr("Keypad"));
    m_pad->setFocusPolicy(Qt::NoFocus);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(m_edit, 1);
    layout->addWidget(m_pad);
    setFocusProxy(m_edit);
    connect(this, &QObject::objectNameChanged, this, [this](const QString& name) {
        m_edit->setObjectName(name);
        m_pad->setObjectName(name + QStringLiteral("Pad"));
    });
    connect(m_pad, &QToolButton::clicked, this, &CKqTimeField::OpenPad);
}

QString CKqTimeField::Text() const
{
    return m_edit->text();
}

void CKqTimeField::SetText(const QString& text)
{
    m_edit->setText(text);
}

void CKqTimeField::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange)
        m_pad->setEnabled(isEnabled());
    QWidget::changeEvent(event);
}

void CKqTimeField::OpenPad()
{
    // The pad starts from the typed time, or midnight when the text is no time.
    static const QRegularExpression time(QStringLiteral("^\\s*(\\d{1,2}):(\\d{2})"));
    const QRegularExpressionMatch match = time.match(m_edit->text());
    int hour = match.hasMatch() ? match.captured(1).toInt() : 0;
    int minute = match.hasMatch() ? match.captured(2).toInt() : 0;
    if (hour > 23 || minute > 59)
        hour = minute = 0;
    CTimePadDlg pad(window(), m_padTitle, hour, minute);
    const CKqPropertyPage* page = CKqPropertyPage::PageOf(this);
    const int result = page ? page->RunModal(pad) : RunDialog(nullptr, pad);
    if (result == QDialog::Accepted) {
        m_edit->setText(QStringLiteral("%1:%2")
                            .arg(pad.Hour(), 2, 10, QLatin1Char('0'))
                            .arg(pad.Minute(), 2, 10, QLatin1Char('0')));
        m_edit->setFocus(Qt::OtherFocusReason);
    }
}
