#include "formats/CTrackCardScan.h"

#include "resources/StringTable.h"
#include "tracks/TrackText.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>

namespace {

bool HasCsvExtension(const std::filesystem::path& path)
{
    return EqualNoCase(path.extension().string(), ".csv");
}

// The reasons that mean "a track, but no jump in it".
bool IsNoJump(const CTrackMessage& reason)
{
    return reason.id == StringTable::IDS_TRACK_NO_FREEFALL || reason.id == StringTable::IDS_TRACK_ENDS_IN_FREEFALL ||
           reason.id == StringTable::IDS_TRACK_NO_JUMP;
}

} // namespace

CMessage CCardTrack::SkipReason() const
{
    switch (skip) {
    case Skip::None:
        return {};
    case Skip::Unreadable:
    case Skip::NoJump:
        return import.reason;
    case Skip::InLogbook:
        return {StringTable::IDS_CARD_IN_LOGBOOK, std::to_string(sameAs)};
    case Skip::Twice:
        return {StringTable::IDS_CARD_TWICE, sameAsFile.filename().string()};
    }
    return {};
}

std::vector<std::filesystem::path> CTrackCardScan::FindTracks(const std::filesystem::path& folder)
{
    std::vector<std::filesystem::path> tracks;
    std::error_code error;
    std::filesystem::recursive_directory_iterator it(folder, std::filesystem::directory_options::skip_permission_denied,
                                                     error);
    const std::filesystem::recursive_directory_iterator end;
    std::vector<std::filesystem::path> csvFiles;
    for (; !error && it != end; it.increment(error)) {
        std::error_code typeError;
        if (it->is_regular_file(typeError) && HasCsvExtension(it->path()))
            csvFiles.push_back(it->path());
    }
    // A folder with a TRACK.CSV is a FlySight 2 session: that file is its track.
    std::vector<std::filesystem::path> sessions;
    for (const auto& file : csvFiles)
        if (EqualNoCase(file.filename().string(), "TRACK.CSV"))
            sessions.push_back(file.parent_path());
    for (const auto& file : csvFiles) {
        const bool inSession = std::find(sessions.begin(), sessions.end(), file.parent_path()) != sessions.end();
        if (!inSession || EqualNoCase(file.filename().string(), "TRACK.CSV"))
            tracks.push_back(file);
    }
    std::sort(tracks.begin(), tracks.end());
    return tracks;
}

CCardScan CTrackCardScan::Scan(const std::filesystem::path& folder, const std::vector<CKnownExit>& logbook,
                               const CTrackImportOptions& options,
                               const std::function<bool(std::size_t, std::size_t)>& progress, unsigned threads)
{
    const std::vector<std::filesystem::path> files = FindTracks(folder);
    std::vector<CCardTrack> tracks(files.size());
    if (threads == 0)
        threads = std::clamp(std::thread::hardware_concurrency(), 1u, 4u);
    threads = std::min<unsigned>(threads, static_cast<unsigned>(std::max<std::size_t>(files.size(), 1)));

    // Each worker takes the next file; the calling thread reports progress and may stop them.
    std::atomic<std::size_t> next{0};
    std::atomic<bool> stop{false};
    std::mutex mutex;
    std::condition_variable changed;
    std::size_t done = 0;
    const auto work = [&] {
        for (;;) {
            const std::size_t index = next.fetch_add(1);
            if (index >= files.size() || stop)
                return;
            CCardTrack track;
            track.path = files[index];
            track.import = CTrackFileImport::Run(files[index], options);
            tracks[index] = std::move(track);
            const std::lock_guard lock(mutex);
            ++done;
            changed.notify_all();
        }
    };
    CCardScan scan;
    if (progress && !progress(0, files.size()))
        stop = true;
    std::vector<std::thread> workers;
    for (unsigned i = 0; i < threads && !stop; ++i)
        workers.emplace_back(work);
    {
        std::unique_lock lock(mutex);
        std::size_t reported = 0;
        while (!stop && done < files.size()) {
            changed.wait_for(lock, std::chrono::milliseconds(100), [&] { return done != reported; });
            if (done == reported)
                continue;
            reported = done;
            if (progress) {
                lock.unlock();
                const bool goOn = progress(reported, files.size());
                lock.lock();
                if (!goOn)
                    stop = true;
            }
        }
    }
    for (std::thread& worker : workers)
        worker.join();
    scan.cancelled = stop;

    // Sorting out, in the order of the paths: a track that found no jump, a jump the logbook or
    // an earlier file of the card holds.
    for (std::size_t i = 0; i < tracks.size(); ++i) {
        CCardTrack& track = tracks[i];
        if (track.path.empty())
            continue; // not read before the scan stopped
        if (!track.import.ok) {
            track.skip = IsNoJump(track.import.reason) ? CCardTrack::Skip::NoJump : CCardTrack::Skip::Unreadable;
        } else {
            const double exit = track.ExitUtc();
            for (const CKnownExit& known : logbook) {
                if (std::fabs(known.utcSeconds - exit) <= kSameExitSeconds) {
                    track.skip = CCardTrack::Skip::InLogbook;
                    track.sameAs = known.number;
                    break;
                }
            }
            if (track.skip == CCardTrack::Skip::None) {
                for (const CCardTrack& earlier : scan.found) {
                    if (std::fabs(earlier.ExitUtc() - exit) <= kSameExitSeconds) {
                        track.skip = CCardTrack::Skip::Twice;
                        track.sameAsFile = earlier.path;
                        break;
                    }
                }
            }
        }
        (track.skip == CCardTrack::Skip::None ? scan.found : scan.skipped).push_back(std::move(track));
    }
    std::stable_sort(scan.found.begin(), scan.found.end(),
                     [](const CCardTrack& a, const CCardTrack& b) { return a.ExitUtc() < b.ExitUtc(); });
    return scan;
}
