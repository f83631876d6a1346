#pragma once

class CLogbookDoc;
class CUnitSettings;
class QWidget;
struct CAppServices;

// "Logbook" > "Statistics..." and the home page's statistics button: the statistics of the open
// logbook as of today, in a window of their own.
class CStatisticsCommand
{
public:
    // Shows the statistics; nothing while no logbook is open.
    static void Run(const CLogbookDoc& doc, const CUnitSettings& units, const CAppServices& services, QWidget* parent);
};
