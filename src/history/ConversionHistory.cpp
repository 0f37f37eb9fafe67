#include "history/ConversionHistory.h"

#include "dialogs/MessageFormat.h"
#include "history/HistoryTexts.h"
#include "prefs/Files.h"

#include <cmath>

namespace tavvel {

namespace {

std::filesystem::path withSuffix(std::filesystem::path file, std::string_view suffix) {
    file += suffix;
    return file;
}

} // namespace

void ConversionHistory::open(const std::filesystem::path& folder, Date now) {
    file_ = folder / kFileName;
    std::error_code ec;
    std::filesystem::create_directories(folder, ec);
    HistoryDatabase::Opened opened = db_.open(file_);
    if (opened == HistoryDatabase::Opened::damaged && setAside(now))
        opened = db_.open(file_);
    if (opened == HistoryDatabase::Opened::unwritable ||
        (opened == HistoryDatabase::Opened::damaged && !notice_))
        notice_ = formatMessage(text::historyUnwritable, file_.string());
}

// Moved, not copied: SQLite must find no file (and no journal of the old one) where the new
// database is to be made.
bool ConversionHistory::setAside(Date now) {
    std::filesystem::path aside = asideName(file_, now.seconds);
    std::error_code ec;
    std::filesystem::rename(file_, aside, ec);
    if (ec)
        return false;
    for (std::string_view journal : {"-wal", "-shm"})
        std::filesystem::rename(withSuffix(file_, journal), withSuffix(aside, journal), ec);
    notice_ = formatMessage(text::historyDamaged, aside.string());
    return true;
}

void ConversionHistory::record(std::string_view account, Date now,
                               const std::vector<HistoryEntry>& entries) {
    if (!available() || entries.empty())
        return;
    if (!db_.recordRun(account, static_cast<std::int64_t>(std::floor(now.seconds)), entries))
        notice_ = formatMessage(text::historyNotRecorded, file_.string());
}

std::optional<std::string> ConversionHistory::takeNotice() {
    std::optional<std::string> notice = std::move(notice_);
    notice_.reset();
    return notice;
}

} // namespace tavvel
