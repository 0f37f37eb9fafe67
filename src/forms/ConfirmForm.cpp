#include "forms/ConfirmForm.h"

#include "dialogs/MessageFormat.h"
#include "forms/CategoryWarning.h"
#include "forms/ConfirmFormTexts.h"
#include "knowledge/Categories.h"
#include "prefs/Settings.h"
#include "recognize/CalendarDate.h"

namespace tavvel {

namespace {

Dictionary split(std::string category, std::string memo, std::string amount) {
    return Dictionary{{"category", Value(std::move(category))},
                      {"memo", Value(std::move(memo))},
                      {"amount", Value(std::move(amount))}};
}

} // namespace

void ConfirmForm::fill(const Setup& setup) {
    setup_ = setup;
    date_ = setup.date;
    description_ = setup.description;
    memo_ = setup.memo.value_or("");
    category_ = setup.category;
    splits_ = setup.splits;
    userSplits_ = false;
    makePrompt();
}

void ConfirmForm::makePrompt() {
    bool hasSplits = splits_ && !splits_->empty();
    if (optionOn(prefs_, option::baseCategoriesOnCategories) && setup_.recordHasCategory &&
        !hasSplits) {
        prompt_ = formatMessage(text::confirmCategoryPrompt, setup_.mustConfirm
                                                                 ? text::allTransactions
                                                                 : text::transactionsWithCategory);
        return;
    }
    std::string_view which = setup_.mustConfirm               ? text::allTransactions
                             : setup_.splitInstructionConfirm ? text::transactionsWithSplitCategory
                                                              : text::transactionsWithDescription;
    prompt_ = formatMessage(text::confirmPrompt,
                            {which, hasSplits ? text::orInSplits : text::memoOrCategory});
}

std::string ConfirmForm::title() const {
    return std::string(text::confirmTitle);
}

std::string ConfirmForm::dateText() const {
    if (date_ == setup_.recordDate)
        return date_;
    return formatMessage(text::willUse, {setup_.recordDate, date_});
}

bool ConfirmForm::setDescription(std::string text) {
    bool changed = text != description_;
    description_ = std::move(text);
    return changed && optionOn(prefs_, option::updateCategoryWhenDescriptionChanged);
}

void ConfirmForm::stepDate(int days) {
    auto date = parseDateWithPattern(date_, setup_.datePattern);
    if (!date || setup_.fixedDate)
        return;
    date_ = formatDate(addDays(*date, days), setup_.datePattern);
}

std::string ConfirmForm::categoryWarning(std::string_view category) const {
    return std::string(tavvel::categoryWarning(category, Categories(prefs_)));
}

std::string ConfirmForm::splitsButtonTitle() const {
    return std::string(splits_ ? text::removeSplits : text::addSplits);
}

void ConfirmForm::addRemoveSplits() {
    userSplits_ = true;
    if (splits_) {
        splits_.reset();
        return;
    }
    splits_ =
        Array{Value(split(category_, memo_, setup_.amount.value_or(""))), Value(split("", "", ""))};
}

void ConfirmForm::addSplitRow() {
    if (!splits_)
        splits_ = Array{};
    splits_->emplace_back(split("", "", ""));
    userSplits_ = true;
}

void ConfirmForm::setSplit(std::size_t row, std::string_view key, std::string text) {
    if (!splits_ || row >= splits_->size())
        return;
    Dictionary updated = (*splits_)[row].dictionary();
    updated.insert_or_assign(std::string(key), Value(std::move(text)));
    (*splits_)[row] = Value(std::move(updated));
    userSplits_ = true;
}

void ConfirmForm::deleteSplitRow(std::size_t row) {
    if (!splits_ || row >= splits_->size())
        return;
    splits_->erase(splits_->begin() + static_cast<std::ptrdiff_t>(row));
    userSplits_ = true;
}

} // namespace tavvel
