#pragma once
// The output format editor's form: one output format record on a working copy, its columns in
// the order the user arranges them with a present switch each, the separator, type, amount
// style, splits option and date pattern. Nothing is stored until confirm(); dropping the form
// is the Cancel.

#include "prefs/TvPrefs.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavvel {

class Context;
class Dialogs;

class OutputFormatForm {
public:
    struct Column {
        std::string name;
        bool present = false;
    };

    // A new format under the name made unique, of the forced type when one is given.
    static OutputFormatForm newFormat(TvPrefs& prefs, std::string_view name,
                                      std::optional<std::string_view> forceType = std::nullopt);
    // The stored record to edit; the built-in "QIF" gives nothing.
    static std::optional<OutputFormatForm> editing(TvPrefs& prefs, const Dictionary& record);
    // editFormatAtIndex:withName:forceType: by name — the stored format of that name (ignoring
    // case) to edit, else a new one under it; nothing for "QIF".
    static std::optional<OutputFormatForm> open(TvPrefs& prefs, std::string_view name);

    TvPrefs& prefs() const { return prefs_; }
    bool isNew() const { return !original_; }
    // The name the edited record is stored under; "" for a new format.
    std::string storedName() const;
    std::string title() const;
    std::string confirmButtonTitle() const;

    const std::string& name() const { return name_; }
    void setName(std::string name) { name_ = std::move(name); }

    static const std::vector<std::string_view>& typeTitles();
    static const std::vector<std::string_view>& separatorTitles();
    static const std::vector<std::string_view>& amountTitles();
    const std::string& type() const { return type_; }
    const std::string& separator() const { return separator_; }
    const std::string& amountStyle() const { return amountStyle_; }
    // typeChanged: — false for a title that is not a type.
    bool setType(std::string_view title);
    bool setSeparator(std::string_view title);
    bool setAmountStyle(std::string_view title);

    bool everySplit() const { return everySplit_; }
    void setEverySplit(bool on) { everySplit_ = on; }
    bool reformatDate() const { return reformatDate_; }
    void setReformatDate(bool on) { reformatDate_ = on; }
    const std::string& reformatDateFormat() const { return reformatDateFormat_; }
    void setReformatDateFormat(std::string pattern) { reformatDateFormat_ = std::move(pattern); }

    const std::vector<Column>& columns() const { return columns_; }
    std::optional<std::size_t> columnIndex(std::string_view name) const;
    void setPresent(std::size_t column, bool present);
    // Drags the column to another place; places outside the table are ignored.
    void moveColumn(std::size_t from, std::size_t to);

    // The record as confirm() would store it.
    Dictionary record() const;
    // The first transactions of a sample statement in the layout as it stands.
    std::string preview(Context& ctx, Dialogs& dialogs) const;

    // Stores the record (replacing the one edited) and returns the index for the name chooser;
    // nothing, with problem() telling why, when the form is not complete.
    std::optional<std::size_t> confirm();
    const std::string& problem() const { return problem_; }

private:
    OutputFormatForm(TvPrefs& prefs, Dictionary record, std::optional<Dictionary> original);
    void showColumnsOf(const Dictionary& record);
    void checkItemsFor();

    TvPrefs& prefs_;
    Dictionary record_;
    std::optional<Dictionary> original_;
    std::string name_, type_, separator_, amountStyle_, reformatDateFormat_;
    bool everySplit_ = false, reformatDate_ = false;
    std::vector<Column> columns_;
    std::string problem_;
};

} // namespace tavvel
