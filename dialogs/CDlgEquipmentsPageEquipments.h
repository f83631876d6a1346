#pragma once

#include "controls/CKqPropertyPage.h"

class CEquipmentsEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;

// The "Gears" page: the rigs by their display text. "New..." adds a rig through the rig editor;
// a tap, a double-click or Enter opens the rig; "Remove" (or Delete) drops the selected rig after
// a Yes to the question.
class CDlgEquipmentsPageEquipments : public CKqPropertyPage
{
    Q_OBJECT

public:
    explicit CDlgEquipmentsPageEquipments(CEquipmentsEdit& edit, QWidget* parent = nullptr);

    void Initialise() override;
    // The list has no values to check.
    CCheckResult Validate() override;

public slots:
    // A new rig, numbered one above the highest, opened in the rig editor; kept on OK.
    void OnNew();
    // The rig of a row in the rig editor; the row is rewritten on OK.
    void OpenRow(int row);
    // Removes the selected rig after a Yes.
    void OnRemove();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Fill(int selectRow);
    void UpdateButtons();

    CEquipmentsEdit& m_edit;
    QListWidget* m_list;
    QPushButton* m_new;
    QPushButton* m_remove;
};
