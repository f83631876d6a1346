#include "CBenchWindow.h"

#include "CLogbookGenerator.h"

#include "app/CLogbookView.h"
#include "app/CSplashWnd.h"

#include <algorithm>

CBenchWindow::CBenchWindow(const CGeneratorOptions& options, IDialogRunner* runner,
                           const std::function<void(CMemorySettingsStore&)>& prepare)
    : m_clock(CDateTime(2025, 1, 2, 12, 0, 0)), m_services{&m_settings, &m_clock, &m_quiet, &m_quiet, &m_quiet, runner}
{
    if (prepare)
        prepare(m_settings);
    m_frame = std::make_unique<CMainFrame>(m_services);
    CSplashWnd::EndSplash();
    // Generated apart and taken over at once, as a load on its own thread hands its logbook over.
    CLogbookDoc generated;
    CLogbookGenerator(options).Fill(generated);
    m_frame->Document().Adopt(generated);
}

void CBenchWindow::ShowJumpList()
{
    m_frame->resize(360, 640);
    m_frame->show();
    m_frame->View()->OnViewJumpList();
}

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}
