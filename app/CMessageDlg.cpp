#include "app/CMessageDlg.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>

namespace {

// A desktop's box is at least this wide, so that a short message does not make a slot of it.
constexpr int kDesktopWidth = 420;

} // namespace

CMessageDlg::CMessageDlg(QStyle::StandardPixmap icon, const QString& title, const QString& text,
                         const QStringList& buttons, int defaultButton, int cancelButton, QWidget* parent)
    : QDialog(parent), m_cancel(cancelButton), m_choice(cancelButton)
{
    setObjectName(QStringLiteral("messageBox"));
    setWindowTitle(title);
    setModal(true);
    m_icon = new QLabel(this);
    m_icon->setObjectName(QStringLiteral("messageIcon"));
    m_iconImage = style()->standardIcon(icon, nullptr, this);
    m_icon->setAlignment(Qt::AlignTop | Qt::AlignHCenter);
    m_text = new QLabel(text);
    m_text->setObjectName(QStringLiteral("messageText"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_text->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    // The text scrolls up and down when the screen is too low for it; the buttons stay in sight.
    m_scroller = new QScrollArea(this);
    m_scroller->setObjectName(QStringLiteral("messageScroller"));
    m_scroller->setFrameShape(QFrame::NoFrame);
    m_scroller->setWidgetResizable(true);
    m_scroller->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroller->setWidget(m_text);
    m_scroller->viewport()->setAutoFillBackground(false);
    m_text->setAutoFillBackground(false);
    for (int i = 0; i < buttons.size(); ++i) {
        auto* button = new QPushButton(buttons[i], this);
        button->setObjectName(QStringLiteral("messageButton%1").arg(i));
        connect(button, &QPushButton::clicked, this, [this, i] {
            m_choice = i;
            if (i == m_cancel)
                QDialog::reject();
            else
                accept();
        });
        m_buttons.append(button);
    }
    if (defaultButton >= 0 && defaultButton < m_buttons.size()) {
        m_buttons[defaultButton]->setDefault(true);
        m_buttons[defaultButton]->setFocus();
    }
}

QString CMessageDlg::StandardText(int standardButton)
{
    const auto which = static_cast<QDialogButtonBox::StandardButton>(standardButton);
    const QDialogButtonBox box(which);
    return box.button(which)->text();
}

void CMessageDlg::reject()
{
    m_choice = m_cancel;
    QDialog::reject();
}

void CMessageDlg::FitTo(const QSize& room)
{
    m_fitted = true;
    const bool narrow = room.width() <= 480;
    const int margin = narrow ? 6 : 11;
    const int gap = narrow ? 4 : 6;
    const int iconSize = narrow ? 24 : 32;
    m_icon->setFixedWidth(iconSize);
    m_icon->setPixmap(m_iconImage.pixmap(iconSize));

    // A new layout; the widgets stay children of the box.
    delete layout();
    auto* main = new QVBoxLayout(this);
    main->setContentsMargins(margin, margin, margin, margin);
    main->setSpacing(2 * gap);
    main->setSizeConstraint(QLayout::SetNoConstraint);
    auto* top = new QHBoxLayout;
    top->setSpacing(2 * gap);
    top->addWidget(m_icon, 0, Qt::AlignTop);
    top->addWidget(m_scroller, 1);
    main->addLayout(top, 1);

    // The buttons in one row to the right when they fit, else in two columns, else in one.
    int row = -gap;
    int widest = 0;
    for (const QPushButton* button : m_buttons) {
        row += button->sizeHint().width() + gap;
        widest = std::max(widest, button->sizeHint().width());
    }
    const int inside = room.width() - 2 * margin;
    const int count = static_cast<int>(m_buttons.size());
    const int columns = row <= inside ? count : 2 * widest + gap <= inside ? 2 : 1;
    auto* grid = new QGridLayout;
    grid->setSpacing(gap);
    for (int i = 0; i < count; ++i) {
        QPushButton* button = m_buttons[i];
        if (columns == count) {
            button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
            grid->addWidget(button, 0, i + 1);
        } else {
            button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
            grid->addWidget(button, i / columns, i % columns);
        }
    }
    if (columns == count)
        grid->setColumnStretch(0, 1);
    main->addLayout(grid);

    // A handheld's or phone's box takes the screen's width; a desktop's what its text and
    // buttons need. It is as high as its text needs, at most the screen's height.
    const int width =
        narrow ? room.width()
               : std::min(room.width(),
                          std::max({kDesktopWidth, row + 2 * margin,
                                    std::min(m_text->sizeHint().width(), 560) + iconSize + 2 * gap + 2 * margin}));
    const int textWidth = width - 2 * margin - iconSize - 2 * gap;
    const int textHeight = std::max(m_text->heightForWidth(textWidth), iconSize);
    // The text gives way to the buttons, down to a line, rather than the other way round.
    m_scroller->setMinimumSize(1, std::min(textHeight, m_text->fontMetrics().lineSpacing()));
    const int height = std::min(room.height(), 2 * margin + textHeight + 2 * gap + grid->sizeHint().height());
    resize(width, height);
    main->activate();
}

void CMessageDlg::showEvent(QShowEvent* event)
{
    if (!m_fitted) {
        const QScreen* where = screen();
        FitTo(where ? where->availableGeometry().size() : QSize(240, 320));
    }
    QDialog::showEvent(event);
}
