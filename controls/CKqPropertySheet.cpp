#include "controls/CKqPropertySheet.h"

#include "controls/CKqPropertyPage.h"
#include "controls/IMessageSink.h"
#include "editing/CCheckResult.h"
#include "translations/MessageText.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QMessageBox>
#include <QProxyStyle>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace {

// The application's style with less room round the tab titles, for a tab row on a narrow screen.
class CCompactTabStyle : public QProxyStyle
{
public:
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override
    {
        if (metric == PM_TabBarTabHSpace)
            return std::min(4, QProxyStyle::pixelMetric(metric, option, widget));
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
};

} // namespace

CKqPropertySheet::CKqPropertySheet(const QString& caption, IMessageSink* messages, QWidget* parent)
    : QDialog(parent), m_messages(messages)
{
    setWindowTitle(caption);
    setModal(true);
    m_tabs = new QTabWidget(this);
    m_tabs->setObjectName(QStringLiteral("sheetTabs"));
    m_tabs->setDocumentMode(true);
    // Titles are never cut. Where even compact tabs do not fit, a list of the pages takes the
    // tab row's place (FitTabs); the scroll buttons stay only as a last resort.
    m_tabs->setUsesScrollButtons(true);
    m_tabs->setElideMode(Qt::ElideNone);
    m_buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_buttons->setObjectName(QStringLiteral("sheetButtons"));

    m_pageChooser = new QComboBox(this);
    m_pageChooser->setObjectName(QStringLiteral("sheetPages"));
    m_pageChooser->hide();

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);
    layout->addWidget(m_pageChooser);
    layout->addWidget(m_tabs, 1);
    layout->addWidget(m_buttons);

    connect(m_buttons, &QDialogButtonBox::accepted, this, &CKqPropertySheet::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &CKqPropertySheet::reject);
    connect(m_tabs, &QTabWidget::currentChanged, this, &CKqPropertySheet::OnCurrentChanged);
    // The list follows the tabs, a refused change of page included; picking a page in it is
    // the same as a tap on its tab.
    connect(m_tabs, &QTabWidget::currentChanged, this, [this] {
        const QSignalBlocker quiet(m_pageChooser);
        m_pageChooser->setCurrentIndex(m_tabs->currentIndex());
    });
    connect(m_pageChooser, &QComboBox::activated, this, [this](int index) {
        if (!SetActivePage(index)) {
            const QSignalBlocker quiet(m_pageChooser);
            m_pageChooser->setCurrentIndex(m_tabs->currentIndex());
        }
    });
}

CKqPropertySheet::~CKqPropertySheet() = default;

void CKqPropertySheet::AddPage(CKqPropertyPage* page)
{
    InsertPage(m_pages.size(), page);
}

void CKqPropertySheet::InsertPage(int index, CKqPropertyPage* page)
{
    index = std::clamp(index, 0, static_cast<int>(m_pages.size()));
    // Each page scrolls on its own when the screen is smaller than the page.
    auto* scroller = new QScrollArea;
    scroller->setObjectName(page->objectName() + QStringLiteral("Scroller"));
    scroller->setFrameShape(QFrame::NoFrame);
    scroller->setWidgetResizable(true);
    scroller->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    scroller->setWidget(page);
    page->SetSheet(this);
    m_pages.insert(index, page);
    // The page on top stays on top; only its index moves, and no page is left or checked.
    m_reverting = true;
    m_tabs->insertTab(index, scroller, page->Title());
    m_reverting = false;
    if (m_current < 0)
        m_current = 0;
    else if (index <= m_current)
        ++m_current;
}

int CKqPropertySheet::IndexOf(const CKqPropertyPage* page) const
{
    return static_cast<int>(m_pages.indexOf(const_cast<CKqPropertyPage*>(page)));
}

int CKqPropertySheet::ActiveIndex() const
{
    return m_tabs->currentIndex();
}

bool CKqPropertySheet::SetActivePage(int index)
{
    if (index < 0 || index >= m_pages.size())
        return false;
    m_tabs->setCurrentIndex(index);
    return m_tabs->currentIndex() == index;
}

void CKqPropertySheet::StartOnPage(int index)
{
    if (index < 0 || index >= m_pages.size())
        return;
    m_reverting = true;
    m_tabs->setCurrentIndex(index);
    m_reverting = false;
    m_current = index;
}

void CKqPropertySheet::InitialisePages()
{
    if (m_initialised)
        return;
    m_initialised = true;
    for (CKqPropertyPage* page : m_pages)
        page->Initialise();
}

void CKqPropertySheet::OnCurrentChanged(int index)
{
    if (m_reverting)
        return;
    const int left = m_current;
    if (left >= 0 && left != index && left < m_pages.size()) {
        const CCheckResult result = m_pages[left]->Validate();
        if (!result.Passed()) {
            ShowFailure(left, result);
            return;
        }
    }
    m_current = index;
    if (index >= 0 && index < m_pages.size())
        m_pages[index]->Activated();
}

void CKqPropertySheet::ShowFailure(int pageIndex, const CCheckResult& result)
{
    if (m_tabs->currentIndex() != pageIndex) {
        m_reverting = true;
        m_tabs->setCurrentIndex(pageIndex);
        m_reverting = false;
    }
    m_current = pageIndex;
    const QString text = MessageText::Text(result.Message());
    const bool error = result.severity == CheckSeverity::Error;
    if (m_messages)
        error ? m_messages->Error(text) : m_messages->Warning(text);
    else if (error)
        QMessageBox::critical(this, windowTitle(), text, QMessageBox::Ok);
    else
        QMessageBox::warning(this, windowTitle(), text, QMessageBox::Ok);
    m_pages[pageIndex]->FocusField(result.field);
}

void CKqPropertySheet::accept()
{
    InitialisePages();
    for (int i = 0; i < m_pages.size(); ++i) {
        const CCheckResult result = m_pages[i]->Validate();
        if (!result.Passed()) {
            ShowFailure(i, result);
            return;
        }
    }
    if (Apply())
        QDialog::accept();
}

void CKqPropertySheet::showEvent(QShowEvent* event)
{
    InitialisePages();
    if (!m_fitted) {
        m_fitted = true;
        FitToScreen();
    }
    QDialog::showEvent(event);
}

void CKqPropertySheet::FitToScreen()
{
    const QScreen* where = screen();
    if (!where)
        return;
    const QSize room = where->availableGeometry().size();
    QSize size = sizeHint().expandedTo(minimumSizeHint());
    size = size.boundedTo(room);
    resize(size);
}

void CKqPropertySheet::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    FitTabs();
}

void CKqPropertySheet::FitTabs()
{
    QTabBar* bar = m_tabs->tabBar();
    if (m_tabs->count() < 2) {
        bar->hide();
        m_pageChooser->hide();
        return;
    }
    const QMargins margins = layout()->contentsMargins();
    const int room = width() - margins.left() - margins.right();
    // Measured in the application's style and the sheet's font; the compact style and a
    // slightly smaller font only when that does not fit.
    if (bar->style() != QApplication::style()) {
        bar->setStyle(nullptr);
        bar->setFont(font());
    }
    bool fits = bar->sizeHint().width() <= room;
    if (!fits) {
        if (!m_compactTabs) {
            m_compactTabs = new CCompactTabStyle;
            m_compactTabs->setParent(this);
        }
        bar->setStyle(m_compactTabs);
        QFont smaller = font();
        smaller.setPointSizeF(smaller.pointSizeF() * 0.9);
        bar->setFont(smaller);
        fits = bar->sizeHint().width() <= room;
    }
    // Too many pages for the width even so: a list of the pages instead of a scrolling tab row.
    bar->setVisible(fits);
    m_pageChooser->setVisible(!fits);
    if (!fits) {
        const QSignalBlocker quiet(m_pageChooser);
        m_pageChooser->clear();
        for (int i = 0; i < m_tabs->count(); ++i)
            m_pageChooser->addItem(m_tabs->tabText(i));
        m_pageChooser->setCurrentIndex(m_tabs->currentIndex());
    }
}
