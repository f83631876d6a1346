#pragma once

#include <QDialog>

#include <vector>

class CCardImportEdit;
class CUnitSettings;
class IMessageSink;
class QCheckBox;
class QComboBox;
class QLabel;
class QTabWidget;
struct CCardTrack;

// "Import tracks": the jumps a card's tracks hold, one row each (date, time, exit height,
// freefall time) with a tick and the choice between a new jump and a jump of the same day that
// has no recording yet; a second page names the files set aside with their reason. Import takes
// the ticked tracks (the command imports them); Cancel changes nothing.
class CDlgCardImport : public QDialog
{
    Q_OBJECT

public:
    CDlgCardImport(CCardImportEdit& edit, const std::vector<CCardTrack>& skipped, const CUnitSettings& units,
                   IMessageSink* messages, QWidget* parent = nullptr);

    QTabWidget* Tabs() const { return m_tabs; }
    QCheckBox* TickOf(int row) const { return m_ticks.at(row); }
    QComboBox* IntoOf(int row) const { return m_into.at(row); }

public slots:
    void accept() override;

private:
    CCardImportEdit& m_edit;
    IMessageSink* m_messages;
    QTabWidget* m_tabs;
    std::vector<QCheckBox*> m_ticks;
    std::vector<QComboBox*> m_into;
};
