#include "forms/EditFormats.h"

#include "dialogs/MessageFormat.h"
#include "knowledge/KnowledgeKeys.h"
#include "knowledge/KnowledgeTexts.h"

namespace tavvel {

namespace {

std::string_view keyOf(EditFormats::Mappings which) {
    return which == EditFormats::Mappings::Types ? fmtkey::TypeMappings : fmtkey::SecurityMappings;
}

} // namespace

bool EditFormats::extractFormatExistsWithName(std::string_view name) const {
    for (const Value& entry : formats_.getExtractFormatsArray())
        if (entry.isDictionary() && textOf(entry.dictionary(), fmtkey::Name) == name)
            return true;
    return false;
}

std::string EditFormats::nameForDuplicateOf(std::string_view name) const {
    std::string candidate = formatMessage(text::formatCopyName, {name});
    for (int n = 2; extractFormatExistsWithName(candidate); ++n)
        candidate = formatMessage(text::formatNumberedCopyName, {name, std::to_string(n)});
    return candidate;
}

std::optional<std::size_t>
EditFormats::duplicateSelectedTableEntry(std::optional<std::size_t> selected) {
    std::optional<Dictionary> record = selected ? formats_.formatAtIndex(*selected) : std::nullopt;
    if (!record)
        return std::nullopt;
    std::string name = nameForDuplicateOf(textOf(*record, fmtkey::Name));
    record->insert_or_assign(std::string(fmtkey::Name), Value(name));
    return formats_.addFormat(*record);
}

bool EditFormats::warns(std::size_t position) const {
    std::optional<Dictionary> record = formats_.formatAtIndex(position);
    const Value* dontWarn = record ? find(*record, fmtkey::dontWarn) : nullptr;
    return !dontWarn || !dontWarn->toBool();
}

void EditFormats::setWarns(std::size_t position, bool warn) {
    std::optional<Dictionary> record = formats_.formatAtIndex(position);
    if (!record || warns(position) == warn)
        return;
    if (warn)
        record->erase(std::string(fmtkey::dontWarn));
    else
        record->insert_or_assign(std::string(fmtkey::dontWarn), Value(true));
    formats_.addFormat(*record);
}

std::string EditFormats::match(std::size_t position) const {
    std::optional<Dictionary> record = formats_.formatAtIndex(position);
    return record ? textOf(*record, fmtkey::Match) : std::string();
}

void EditFormats::setMatch(std::size_t position, std::string_view match) {
    std::optional<Dictionary> record = formats_.formatAtIndex(position);
    if (!record || this->match(position) == match)
        return;
    record->insert_or_assign(std::string(fmtkey::Match), Value(std::string(match)));
    formats_.addFormat(*record);
}

std::string EditFormats::mappingsTitle(std::size_t position, Mappings which) const {
    std::optional<Dictionary> record = formats_.formatAtIndex(position);
    std::string_view title =
        which == Mappings::Types ? text::deleteTypesTitle : text::deleteSecuritiesTitle;
    return std::string(title) + (record ? textOf(*record, fmtkey::Name) : std::string());
}

Array EditFormats::mappings(std::size_t position, Mappings which) const {
    std::optional<Dictionary> record = formats_.formatAtIndex(position);
    const Value* list = record ? find(*record, keyOf(which)) : nullptr;
    return list ? list->array() : Array{};
}

TableEditor EditFormats::mappingsTable(std::size_t position, Mappings which) const {
    using Shape = TableEditor::Shape;
    std::vector<std::pair<std::string_view, std::string_view>> columns =
        which == Mappings::Types
            ? decltype(columns){{typemapkey::formatType, text::statementTypeColumn},
                                {typemapkey::quickenType, text::actionColumn},
                                {typemapkey::assumedSecurity, text::assumedSecurityColumn}}
            : decltype(columns){{seckey::formatName, text::statementSecurityColumn},
                                {seckey::quickenName, text::securityColumn}};
    std::vector<std::string> keys;
    for (const auto& [key, heading] : columns)
        keys.emplace_back(key);
    TableEditor table(mappings(position, which), keys);
    for (const auto& [key, heading] : columns)
        table.shapeColumn(key, Shape{std::string(heading), {}});
    table.allowOnlyRemoval();
    return table;
}

void EditFormats::setMappings(std::size_t position, Mappings which, Array remaining) {
    std::optional<Dictionary> record = formats_.formatAtIndex(position);
    if (!record)
        return;
    record->insert_or_assign(std::string(keyOf(which)), Value(std::move(remaining)));
    formats_.addFormat(*record);
}

} // namespace tavvel
