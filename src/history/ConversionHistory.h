#pragma once
// The conversion history as a run meets it: opened once, a damaged database set aside and
// started afresh, one that cannot be written left alone. Whatever happens, the conversion goes
// on; what the user must know is kept in `notice` for the run to show.

#include "history/HistoryDatabase.h"
#include "prefs/Value.h"

#include <filesystem>
#include <optional>
#include <string>

namespace tavvel {

class ConversionHistory {
public:
    static constexpr const char* kFileName = "history.sqlite";

    // Opens folder/history.sqlite, creating the folder; `now` names a set-aside file.
    void open(const std::filesystem::path& folder, Date now);
    bool available() const { return db_.isOpen(); }
    const std::filesystem::path& file() const { return file_; }
    HistoryDatabase& database() { return db_; }

    // Records one run once its output file is written; on failure `notice` says so.
    void record(std::string_view account, Date now, const std::vector<HistoryEntry>& entries);

    // What to tell the user about the database, once; taking it clears it.
    std::optional<std::string> takeNotice();

private:
    bool setAside(Date now);

    HistoryDatabase db_;
    std::filesystem::path file_;
    std::optional<std::string> notice_;
};

} // namespace tavvel
