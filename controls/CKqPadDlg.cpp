#include "controls/CKqPadDlg.h"

#include "controls/CKqButton.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace {

// Gaps between keys, round the dialog's edge and between the dialog's rows.
constexpr int kKeyGap = 2;
constexpr int kMargin = 3;
constexpr int kRowGap = 4;
// The OK and Cancel faces.
const QColor kCommandFace(222, 222, 222);

} // namespace

CKqPadDlg::CKqPadDlg(QWidget* parent, const QString& title, const QString& fallbackTitle) : QDialog(parent)
{
    setWindowTitle(title.isEmpty() ? fallbackTitle : title);
    setModal(true);

    m_display = new QLabel(this);
    m_display->setObjectName(QStringLiteral("display"));
    QFont displayFont = CKqButton::PadFont();
    displayFont.setPixelSize(18);
    m_display->setFont(displayFont);
    m_display->setFrameShape(QFrame::Panel);
    m_display->setFrameShadow(QFrame::Sunken);
    m_display->setLineWidth(1);
    m_display->setAutoFillBackground(true);
    m_display->setBackgroundRole(QPalette::Base);
    m_display->setForegroundRole(QPalette::Text);
    m_display->setContentsMargins(4, 1, 4, 1);
    m_display->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_display->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);

    m_ok = new CKqButton(tr("OK"), kCommandFace, this);
    m_ok->setObjectName(QStringLiteral("ok"));
    m_cancel = new CKqButton(tr("Cancel"), kCommandFace, this);
    m_cancel->setObjectName(QStringLiteral("cancel"));
    connect(m_ok, &CKqButton::clicked, this, &CKqPadDlg::accept);
    connect(m_cancel, &CKqButton::clicked, this, &CKqPadDlg::reject);
}

CKqPadDlg::~CKqPadDlg() = default;

CKqButton* CKqPadDlg::AddKey(const QString& name, const QString& text, const QColor& face, int id)
{
    auto* key = new CKqButton(text, face, this);
    key->setObjectName(QStringLiteral("key_") + name);
    connect(key, &CKqButton::clicked, this, [this, id] { OnKey(id); });
    m_keys.append(key);
    return key;
}

void CKqPadDlg::AddShortcut(int qtKey, CKqButton* key)
{
    m_keyShortcuts.insert(qtKey, key);
}

void CKqPadDlg::AddShortcut(const QString& typed, CKqButton* key)
{
    if (!typed.isEmpty())
        m_textShortcuts.insert(typed, key);
}

QLabel* CKqPadDlg::AddCaption(const QString& text)
{
    auto* caption = new QLabel(text, this);
    caption->setObjectName(QStringLiteral("caption_") + text);
    QFont font = CKqButton::PadFont();
    font.setPixelSize(12);
    caption->setFont(font);
    caption->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
    caption->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_captions.append(caption);
    return caption;
}

QGridLayout* CKqPadDlg::NewGrid()
{
    auto* grid = new QGridLayout;
    grid->setSpacing(kKeyGap);
    grid->setContentsMargins(0, 0, 0, 0);
    return grid;
}

void CKqPadDlg::SetDisplayText(const QString& text)
{
    m_display->setText(text);
}

void CKqPadDlg::SetDisplayAlignment(Qt::Alignment alignment)
{
    m_display->setAlignment(alignment);
}

void CKqPadDlg::EvenOut(QLayout* keys)
{
    // Without stretch factors the grids would hand the spare room to the keys with the longest
    // labels; every column and every row of keys shares it equally instead.
    QList<QGridLayout*> grids = keys->findChildren<QGridLayout*>();
    if (auto* grid = qobject_cast<QGridLayout*>(keys))
        grids.append(grid);
    for (QGridLayout* grid : grids) {
        for (int column = 0; column < grid->columnCount(); ++column)
            grid->setColumnStretch(column, 1);
        for (int row = 0; row < grid->rowCount(); ++row) {
            QLayoutItem* first = grid->itemAtPosition(row, 0);
            grid->setRowStretch(row, first && qobject_cast<CKqButton*>(first->widget()) ? 1 : 0);
        }
    }
}

void CKqPadDlg::LimitKeys(const QSize& smallest, const QSize& largest)
{
    for (CKqButton* key : m_keys) {
        key->setMinimumSize(smallest);
        key->setMaximumSize(largest);
    }
}

void CKqPadDlg::FitTo(const QSize& room)
{
    m_fitted = true;
    const bool landscape = room.width() > room.height();
    const int shortSide = std::min(room.width(), room.height());
    // Handhelds (240 x 320) take small keys; phones and desktops keep them fingertip sized,
    // and desktops stop them growing into slabs.
    const bool handheld = shortSide <= 320;
    const bool desktop = shortSide > 480;
    const QSize smallest = handheld ? QSize(24, 22) : QSize(40, 36);
    const int largestWidth = desktop ? 64 : 110;
    const int largestHeight = desktop ? 48 : 64;
    const int commandHeight = handheld ? 26 : 36;

    // A new layout; the widgets stay children of the dialog.
    delete layout();
    auto* main = new QVBoxLayout(this);
    main->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    main->setSpacing(kRowGap);
    main->setSizeConstraint(QLayout::SetNoConstraint);
    main->addWidget(m_display);
    QLayout* keys = ArrangeKeys(landscape);
    EvenOut(keys);
    main->addLayout(keys, 1);
    auto* commands = new QHBoxLayout;
    commands->setSpacing(kKeyGap);
    commands->addWidget(m_ok);
    commands->addWidget(m_cancel);
    main->addLayout(commands);
    for (CKqButton* command : {m_ok, m_cancel}) {
        command->setMinimumSize(smallest.width(), commandHeight);
        command->setMaximumHeight(commandHeight);
    }
    m_display->setFixedHeight(QFontMetrics(m_display->font()).height() + (handheld ? 6 : 12));

    // The largest pad that fits: keys as large as allowed, then no taller than they are wide.
    const int fixedHeight = m_display->height() + commandHeight + 2 * kRowGap + 2 * kMargin;
    const auto fit = [&](int keyHeight) {
        LimitKeys(smallest, QSize(largestWidth, std::max(keyHeight, smallest.height())));
        keys->invalidate();
        const QSize most = keys->maximumSize();
        const QSize least = keys->minimumSize();
        const int width = std::clamp(most.width(), least.width(), std::max(least.width(), room.width() - 2 * kMargin));
        const int height =
            std::clamp(most.height(), least.height(), std::max(least.height(), room.height() - fixedHeight));
        return QSize(width + 2 * kMargin, height + fixedHeight);
    };
    QSize size = fit(largestHeight);
    resize(size);
    main->activate();
    int keyWidth = largestWidth;
    for (CKqButton* key : m_keys)
        keyWidth = std::min(keyWidth, key->width());
    if (keyWidth < largestHeight) {
        size = fit(keyWidth);
        resize(size);
        main->activate();
    }
    setMinimumSize(main->minimumSize());
}

void CKqPadDlg::keyPressEvent(QKeyEvent* event)
{
    CKqButton* key = m_textShortcuts.value(event->text(), nullptr);
    if (!key)
        key = m_keyShortcuts.value(event->key(), nullptr);
    if (key) {
        // A disabled key ignores the click.
        key->click();
        event->accept();
        return;
    }
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        event->accept();
        accept();
        return;
    case Qt::Key_Escape:
        event->accept();
        reject();
        return;
    default:
        QDialog::keyPressEvent(event);
    }
}

void CKqPadDlg::showEvent(QShowEvent* event)
{
    if (!m_fitted) {
        const QScreen* where = screen();
        FitTo(where ? where->availableGeometry().size() : QSize(240, 320));
    }
    QDialog::showEvent(event);
}
