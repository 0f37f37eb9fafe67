// Settings changes: each --set or --unset is read into a change of one dialog control, the
// whole list is tried on a scratch copy of the store first (so a refused list changes
// nothing), then each change is made through the preferences dialog's form and saved.

#include "SettingsCommand.h"

#include "CliTexts.h"
#include "OptionControls.h"
#include "context/Context.h"
#include "prefs/OutputFormatting.h"
#include "prefs/Settings.h"

#include <charconv>
#include <iomanip>
#include <variant>

namespace tavvel {

namespace {

using Switch = PreferencesForm::Switch;
using Choice = PreferencesForm::Choice;

struct OptionChange {
    OptionControl control;
    bool on;
};
struct ValueChange {
    ValuedSetting setting;
    std::string text;
};
using Change = std::variant<OptionChange, ValueChange>;

// The change read from the command line, or the reason it cannot be made.
using Reading = std::variant<Change, std::string>;

std::optional<bool> readBoolean(std::string_view text) {
    for (std::string_view yes : {"true", "yes", "on", "1"})
        if (text == yes)
            return true;
    for (std::string_view no : {"false", "no", "off", "0"})
        if (text == no)
            return false;
    return std::nullopt;
}

std::optional<int> readPrecision(std::string_view text) {
    int value = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || value < 2 || value > 6)
        return std::nullopt;
    return value;
}

std::optional<std::string> valueProblem(const ValuedSetting& setting, std::string_view value) {
    using Kind = ValuedSetting::Kind;
    std::string key(setting.key);
    if (setting.kind == Kind::precision && !readPrecision(value))
        return formatMessage(clitext::notAPrecision, {key, value});
    bool boolean = setting.kind == Kind::updateChecks || setting.kind == Kind::dayFirstAtStart;
    if (boolean && !readBoolean(value))
        return formatMessage(clitext::notABoolean, {key, value});
    if (value.find_first_of("\r\n") != std::string_view::npos)
        return formatMessage(clitext::settingOneLine, key);
    return std::nullopt;
}

Reading readValueChange(std::string_view key, std::string_view value) {
    auto setting = valuedSettingFor(key);
    if (!setting && optionControlFor(key))
        return formatMessage(clitext::isAnOption, {key, key, key});
    if (!setting)
        return formatMessage(clitext::noSuchSetting, key);
    if (auto problem = valueProblem(*setting, value))
        return *problem;
    return Change(ValueChange{*setting, std::string(value)});
}

Reading readChange(const SettingChange& change) {
    std::size_t equals = change.text.find('=');
    if (equals != std::string::npos && change.on)
        return readValueChange(std::string_view(change.text).substr(0, equals),
                               std::string_view(change.text).substr(equals + 1));
    if (equals != std::string::npos)
        return formatMessage(clitext::unsetTakesName, change.text);
    if (auto control = optionControlFor(change.text))
        return Change(OptionChange{*control, change.on});
    if (valuedSettingFor(change.text))
        return formatMessage(clitext::takesAValue, {change.text, change.text});
    return formatMessage(clitext::noSuchOption, change.text);
}

// Why the dialog would not let this switch be turned on now; nothing when it would.
std::optional<std::string> disabledReason(const PreferencesForm& form, const OptionControl& c) {
    if (c.isChoice || form.switchEnabled(c.switchControl))
        return std::nullopt;
    if (c.switchControl == Switch::showAllAccountNames)
        return formatMessage(clitext::onlyWhileAppend, c.name);
    return formatMessage(clitext::onlyWithoutCategoryChoice, c.name);
}

std::optional<std::string> changeOption(PreferencesForm& form, const OptionChange& change) {
    const OptionControl& c = change.control;
    if (change.on) {
        if (auto reason = disabledReason(form, c))
            return reason;
        if (c.isChoice)
            form.choose(c.choiceControl, c.item);
        else
            form.setSwitch(c.switchControl, true);
        return std::nullopt;
    }
    if (!c.isChoice)
        form.setSwitch(c.switchControl, false);
    else if (form.chosen(c.choiceControl) == c.item)
        form.choose(c.choiceControl, c.offItem);
    return std::nullopt;
}

void changeValue(PreferencesForm& form, const ValueChange& change) {
    using Kind = ValuedSetting::Kind;
    switch (change.setting.kind) {
    case Kind::precision:
        form.choose(change.setting.precision, *readPrecision(change.text) - 2);
        break;
    case Kind::descriptionTemplate:
        form.setDescriptionOutput(change.text);
        break;
    case Kind::memoTemplate:
        form.setMemoOutput(change.text);
        break;
    case Kind::updateChecks:
        form.setSwitch(Switch::automaticUpdateChecks, *readBoolean(change.text));
        break;
    case Kind::dayFirstAtStart:
        break; // not a control of the dialog: see makeChange
    }
}

// One change, made as the dialog would make it and saved; the reason when it is refused.
std::optional<std::string> makeChange(TvPrefs& prefs, OutputFormatting& output,
                                      const Change& change) {
    const auto* value = std::get_if<ValueChange>(&change);
    if (value && value->setting.kind == ValuedSetting::Kind::dayFirstAtStart) {
        bool dayFirst = *readBoolean(value->text);
        prefs.setBool(value->setting.key, dayFirst);
        setDateFormatters(prefs, output, dayFirst ? "d/M" : "M/d");
        prefs.synchronize();
        return std::nullopt;
    }
    PreferencesForm form(prefs, output);
    form.display();
    if (value)
        changeValue(form, *value);
    else if (auto reason = changeOption(form, std::get<OptionChange>(change)))
        return reason;
    form.ok();
    return std::nullopt;
}

// A copy of the store that lives in memory only, for trying the changes out.
TvPrefs scratchCopy(const TvPrefs& prefs) {
    TvPrefs scratch;
    for (const auto& [key, value] : prefs.dictionary())
        scratch.setObject(key, value);
    return scratch;
}

} // namespace

std::optional<std::string> checkSettingChanges(const std::vector<SettingChange>& changes) {
    for (const SettingChange& change : changes) {
        Reading reading = readChange(change);
        if (auto* problem = std::get_if<std::string>(&reading))
            return *problem;
    }
    return std::nullopt;
}

int applySettingChanges(Context& ctx, const std::vector<SettingChange>& changes,
                        std::ostream& err) {
    std::vector<Change> read;
    for (const SettingChange& change : changes) {
        Reading reading = readChange(change);
        if (auto* problem = std::get_if<std::string>(&reading)) {
            errorLine(err, formatMessage(clitext::nothingChanged, *problem));
            return kExitUsage;
        }
        read.push_back(std::get<Change>(reading));
    }
    TvPrefs scratch = scratchCopy(ctx.prefs);
    OutputFormatting scratchOutput = ctx.output;
    for (const Change& change : read)
        if (auto reason = makeChange(scratch, scratchOutput, change)) {
            errorLine(err, formatMessage(clitext::nothingChanged, *reason));
            return kExitUsage;
        }
    for (const Change& change : read)
        makeChange(ctx.prefs, ctx.output, change);
    return kExitOK;
}

namespace {

std::string valueText(const TvPrefs& prefs, const ValuedSetting& setting) {
    using Kind = ValuedSetting::Kind;
    switch (setting.kind) {
    case Kind::precision:
        return std::to_string(prefs.integerForKey(setting.key));
    case Kind::updateChecks:
    case Kind::dayFirstAtStart:
        return prefs.boolForKey(setting.key) ? "true" : "false";
    default:
        const Value* text = prefs.objectForKey(setting.key);
        return text ? text->text() : std::string();
    }
}

} // namespace

void printSettings(const Context& ctx, std::ostream& out) {
    out << "Options (--set NAME, --unset NAME):\n";
    for (const OptionControl& control : optionControls())
        out << "  " << std::left << std::setw(40) << control.name
            << (optionOn(ctx.prefs, control.name) ? "on" : "off") << "\n";
    out << "Settings (--set KEY=VALUE):\n";
    for (const ValuedSetting& setting : valuedSettings())
        out << "  " << std::left << std::setw(40)
            << (std::string(setting.key) + "=" + valueText(ctx.prefs, setting)) << "# "
            << setting.meaning << "\n";
}

} // namespace tavvel
