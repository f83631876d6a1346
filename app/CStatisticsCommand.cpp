#include "app/CStatisticsCommand.h"

#include "app/CAppServices.h"
#include "app/CDlgStatistics.h"
#include "controls/IDialogRunner.h"
#include "document/CLogbookDoc.h"
#include "document/IClock.h"

void CStatisticsCommand::Run(const CLogbookDoc& doc, const CUnitSettings& units, const CAppServices& services,
                             QWidget* parent)
{
    if (!doc.HasPath())
        return;
    const CDateTime today = services.clock ? services.clock->Today() : CSystemClock().Today();
    const CLogbookStats stats = CLogbookStats::Compute(doc, today);
    CDlgStatistics dialog(stats, CLicenceStatus::Compute(stats, doc.GetSettings().GetLicenses()), units, parent);
    if (parent)
        dialog.resize(parent->size());
    RunDialog(services.dialogs, dialog);
}
