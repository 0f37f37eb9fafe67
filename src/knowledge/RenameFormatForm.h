#pragma once
// The form that names an input format being imported: the name field starts with the
// format's own name; OK is enabled only while the name is not empty, and a note says when a
// stored format has that name already (importing replaces it).

#include <functional>
#include <string>
#include <string_view>

namespace tavvel {

class RenameFormatForm {
public:
    using NameTaken = std::function<bool(std::string_view name)>;

    RenameFormatForm(std::string name, NameTaken taken);

    const std::string& name() const { return name_; }
    void nameChanged(std::string name);

    bool okEnabled() const { return !name_.empty(); }
    bool duplicateNoteShown() const { return duplicate_; }
    static std::string_view duplicateNote();
    static std::string_view prompt();

private:
    std::string name_;
    NameTaken taken_;
    bool duplicate_ = false;
};

// Shows the form and returns true when the user confirmed it (OK), false for Cancel.
using PresentRenameForm = std::function<bool(RenameFormatForm& form)>;

} // namespace tavvel
