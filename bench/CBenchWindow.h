#pragma once

#include "CGeneratorOptions.h"

#include "app/CAppServices.h"
#include "app/CMainFrame.h"
#include "app/IFileChooser.h"
#include "app/IPictureViewer.h"
#include "controls/IMessageSink.h"
#include "document/IClock.h"
#include "units/CMemorySettingsStore.h"

#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

class IDialogRunner;

// Message boxes and the outside world stay silent during a measurement; errors and the last
// warning are kept for the benchmark to report.
class CQuietServices final : public IMessageSink, public IFileChooser, public IPictureViewer
{
public:
    void Error(const QString& text) override { errors.append(text); }
    void Information(const QString&) override {}
    void Warning(const QString& text) override { lastWarning = text; }
    bool AskYesNo(const QString&) override { return false; }
    Answer AskYesNoCancel(const QString&) override { return Answer::Cancel; }
    void About(const QString&, const QString&) override {}
    QString ChooseOpen(const QString&) override { return {}; }
    QString ChooseSave(const QString&) override { return {}; }
    QString ChooseTrack(const QString&) override { return {}; }
    QString ChooseExport(const QString&) override { return {}; }
    QString ChoosePdf(const QString&) override { return {}; }
    QString ChooseCsv(const QString&) override { return {}; }
    QString ChooseTrackFolder(const QString&) override { return {}; }
    bool Open(const QString&) override { return false; }

    QStringList errors;
    QString lastWarning;
};

// The window program as the window benchmarks drive it: the main frame on settings kept in
// memory, a fixed clock and quiet services, its document filled with a generated logbook.
class CBenchWindow
{
public:
    // prepare sees the settings before the frame reads them; runner runs the editors (null: exec).
    CBenchWindow(const CGeneratorOptions& options, IDialogRunner* runner = nullptr,
                 const std::function<void(CMemorySettingsStore&)>& prepare = {});

    CMainFrame& Frame() { return *m_frame; }
    CLogbookDoc& Document() { return m_frame->Document(); }
    CQuietServices& Quiet() { return m_quiet; }
    // A phone-sized window on screen with the list of all jumps.
    void ShowJumpList();

private:
    CMemorySettingsStore m_settings;
    CFixedClock m_clock;
    CQuietServices m_quiet;
    CAppServices m_services;
    std::unique_ptr<CMainFrame> m_frame;
};

// The middle value of a benchmark's runs.
double Median(std::vector<double> values);
