#include "knowledge/RenameFormatForm.h"

#include "knowledge/KnowledgeTexts.h"

namespace tavvel {

RenameFormatForm::RenameFormatForm(std::string name, NameTaken taken) : taken_(std::move(taken)) {
    nameChanged(std::move(name));
}

void RenameFormatForm::nameChanged(std::string name) {
    name_ = std::move(name);
    duplicate_ = !name_.empty() && taken_ && taken_(name_);
}

std::string_view RenameFormatForm::duplicateNote() {
    return text::formatDuplicateName;
}

std::string_view RenameFormatForm::prompt() {
    return text::renameFormatPrompt;
}

} // namespace tavvel
