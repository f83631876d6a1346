#pragma once

#include <QDialog>
#include <QList>

class CKqPropertyPage;
class IDialogRunner;
class IMessageSink;
class QDialogButtonBox;
class QStyle;
class QComboBox;
class QTabWidget;
struct CCheckResult;

// The tabbed editor base. Pages are initialised once before the sheet first shows. Leaving a
// page validates it: a failure keeps the user on it, shows the message once and focuses the
// field's control. OK validates every page in tab order, stops at the first failure (switching
// to that page), and otherwise calls Apply and closes. Cancel closes without Apply. A sheet of
// one page shows neither tab row nor list of pages: the page is the whole dialog.
class CKqPropertySheet : public QDialog
{
    Q_OBJECT

public:
    // A sheet with its caption; messages go to the sink (not owned).
    CKqPropertySheet(const QString& caption, IMessageSink* messages, QWidget* parent = nullptr);
    ~CKqPropertySheet() override;

    // Adds a page as the next tab; the sheet owns it.
    void AddPage(CKqPropertyPage* page);
    // Puts a page in as the tab at index (the pages from there move one on); the sheet owns it.
    void InsertPage(int index, CKqPropertyPage* page);
    int PageCount() const { return m_pages.size(); }
    CKqPropertyPage* Page(int index) const { return m_pages.value(index, nullptr); }
    // The tab index of a page, or -1 when the sheet does not hold it.
    int IndexOf(const CKqPropertyPage* page) const;
    // The index of the page on top.
    int ActiveIndex() const;
    // Shows another page after the one on top passed its check; false when it was refused.
    bool SetActivePage(int index);
    // Puts a page on top without checking the one that was there (for opening on a page).
    void StartOnPage(int index);
    // The same by the page itself, wherever other pages put its tab.
    void StartOnPage(const CKqPropertyPage* page) { StartOnPage(IndexOf(page)); }
    // The tabs, for tests and layouts.
    QTabWidget* Tabs() const { return m_tabs; }
    // The OK and Cancel buttons.
    QDialogButtonBox* Buttons() const { return m_buttons; }

    // The runner of the keypads and other dialogs the pages open (null: run them for real).
    IDialogRunner* DialogRunner() const { return m_runner; }
    void SetDialogRunner(IDialogRunner* runner) { m_runner = runner; }
    // The message sink the sheet reports to.
    IMessageSink* Messages() const { return m_messages; }

    // Initialises every page once; the sheet calls this before it first shows. A sheet whose
    // pages depend on what was prepared after it was made adds them here before the base runs.
    virtual void InitialisePages();

public slots:
    // OK: every page's check in tab order, then Apply; the sheet stays open on a failure.
    void accept() override;

protected:
    // Writes the working values back once every page passed; false keeps the sheet open.
    virtual bool Apply() { return true; }
    // Shows a failed check: the page comes to the top, the message box, the focus.
    void ShowFailure(int pageIndex, const CCheckResult& result);
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void OnCurrentChanged(int index);
    // The size of the sheet: its natural size, but never larger than the screen.
    void FitToScreen();
    // Narrower tabs (less room round the titles, a slightly smaller font) when the tab row
    // would not fit the sheet otherwise, and a list of the pages when even those do not fit.
    void FitTabs();

    IMessageSink* m_messages;
    IDialogRunner* m_runner = nullptr;
    QTabWidget* m_tabs;
    QComboBox* m_pageChooser;
    QDialogButtonBox* m_buttons;
    QList<CKqPropertyPage*> m_pages;
    int m_current = -1;
    bool m_reverting = false;
    bool m_initialised = false;
    QStyle* m_compactTabs = nullptr;
    bool m_fitted = false;
};
