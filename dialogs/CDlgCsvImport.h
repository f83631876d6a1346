#pragma once

#include "formats/CCsvJumpImport.h"

#include <QDialog>

#include <array>

class CCsvImportEdit;
class CLogbookDoc;
class CUnitSettings;
class IMessageSink;
class QComboBox;
class QLabel;
class QListWidget;
class QTabWidget;

// "Import CSV": the columns of a spreadsheet of jumps, each jump field with a combo of the file's
// columns to correct what the header suggested; the date form (asked for when the dates allow
// two readings) and the height unit; and a preview of the first rows as they will be imported,
// each row that cannot be read marked with its line and reason. Import takes the readable rows
// and skips the others; Cancel changes nothing. The command applies the edit on Import.
class CDlgCsvImport : public QDialog
{
    Q_OBJECT

public:
    // The rows the preview shows.
    static constexpr int kPreviewRows = 200;

    // The edit must be loaded with the file; it is changed by the dialog's controls.
    CDlgCsvImport(CCsvImportEdit& edit, const CLogbookDoc& doc, const CUnitSettings& units, IMessageSink* messages,
                  const QString& fileName, QWidget* parent = nullptr);

    QTabWidget* Tabs() const { return m_tabs; }
    QComboBox* ColumnCombo(JumpField field) const { return m_columns[static_cast<std::size_t>(field)]; }
    QComboBox* DatesCombo() const { return m_dates; }
    QComboBox* UnitsCombo() const { return m_units; }
    // Rows whose number the logbook has: skipped (0) or replacing an unsigned jump (1).
    QComboBox* ReplaceCombo() const { return m_replace; }
    QListWidget* PreviewList() const { return m_preview; }
    QLabel* SummaryLabel() const { return m_summary; }

public slots:
    void accept() override;

private:
    QWidget* MakeColumnsPage();
    QWidget* MakePreviewPage();
    // Shows the edit's rows and counts.
    void ShowPreview();

    CCsvImportEdit& m_edit;
    const CLogbookDoc& m_doc;
    const CUnitSettings& m_unitSettings;
    IMessageSink* m_messages;
    QTabWidget* m_tabs;
    std::array<QComboBox*, kSpreadsheetFieldCount> m_columns{};
    QComboBox* m_dates = nullptr;
    QComboBox* m_units = nullptr;
    QComboBox* m_replace = nullptr;
    QLabel* m_summary = nullptr;
    QListWidget* m_preview = nullptr;
};
