#include "app/StartUp.h"

#include "app/AppTexts.h"
#include "context/Context.h"
#include "dialogs/Dialogs.h"
#include "knowledge/Categories.h"
#include "knowledge/KnowledgeAtStartUp.h"
#include "prefs/Files.h"
#include "prefs/Settings.h"
#include "recognize/CalendarDate.h"

#include <filesystem>

namespace tavvel {

namespace {

namespace fs = std::filesystem;

bool contains(const Array& list, std::string_view name) {
    for (const Value& item : list)
        if (item.isString() && item.text() == name)
            return true;
    return false;
}

void addTo(Array& list, std::string_view name) {
    if (!contains(list, name))
        list.emplace_back(name);
}

void removeFrom(Array& list, std::string_view name) {
    std::erase_if(list, [&](const Value& item) { return item.isString() && item.text() == name; });
}

// Step 2: a first start copies the predecessor's file over and introduces the program.
void firstRun(Context& ctx, Dialogs& dialogs) {
    fs::path ours = TvPrefs::pathFor(ctx.places.prefsFolder, kApplicationID);
    std::error_code ec;
    if (fs::exists(ours, ec))
        return;
    fs::path theirs = TvPrefs::pathFor(ctx.places.prefsFolder, kPredecessorApplicationID);
    std::string text(text::firstRunIntroduction);
    // Copied whole or not at all: a half copy would be read as a damaged preference file.
    if (fs::exists(theirs, ec) && copyFileAtomically(theirs, ours))
        text += text::firstRunPredecessorFound;
    dialogs.alert(std::string(text::firstRunTitle), text);
}

// Step 4: the option list of an existing user, or the primary-usage question for a new one.
Array optionListAtStart(TvPrefs& prefs, Dialogs& dialogs) {
    const Value* stored = prefs.objectForKey(prefkey::Preferences);
    if (stored) {
        Array list = stored->array();
        // Existing users keep the older output dialect.
        if (!contains(list, option::converted2_2))
            addTo(list, option::quicken2003);
        if (prefs.objectForKey(prefkey::qifCancelDontAsk) ||
            prefs.objectForKey(prefkey::invCancelDontAsk)) {
            prefs.removeObjectForKey(prefkey::qifCancelDontAsk);
            prefs.removeObjectForKey(prefkey::invCancelDontAsk);
        }
        return list;
    }
    Array list;
    std::size_t answer =
        dialogs.ask(std::string(text::primaryUsageTitle), std::string(text::primaryUsageText),
                    {std::string(text::justConvert), std::string(text::addCategories)});
    if (answer == 0)
        list.emplace_back(option::dontAddCategories);
    return list;
}

// Steps 4 to 7.
void settleOptionList(Context& ctx, Dialogs& dialogs) {
    TvPrefs& prefs = ctx.prefs;
    Array list = optionListAtStart(prefs, dialogs);
    auto store = [&] { prefs.setObject(prefkey::Preferences, Value(list)); };
    if (!contains(list, option::converted2_2)) {
        addTo(list, option::textConfirmAllTransactions);
        addTo(list, option::converted2_2);
        store();
    }
    if (contains(list, option::dontConfirmCancel)) {
        removeFrom(list, option::dontConfirmCancel);
        store();
    }
    if (!contains(list, option::accountsInCategories)) {
        Categories(prefs).updateAccounts();
        addTo(list, option::accountsInCategories);
        store();
    }
}

void setIfMissing(TvPrefs& prefs, std::string_view key, const Value& value) {
    if (!prefs.objectForKey(key))
        prefs.setObject(key, value);
}

// Step 10: older versions kept the run's dates as text in the long output date format.
void convertLegacyRunSettings(TvPrefs& prefs) {
    const Value* stored = prefs.objectForKey(prefkey::ControlSettings);
    Dictionary settings = stored ? stored->dictionary() : Dictionary{};
    std::string pattern(prefs.objectForKey(prefkey::OutputDateFormat)->text());
    const std::pair<std::string_view, std::string_view> legacy[] = {
        {runkey::dateFromString, runkey::dateFrom},
        {runkey::dateToString, runkey::dateTo},
        {runkey::outputDateString, runkey::outputDate},
    };
    for (auto [from, to] : legacy) {
        const Value* text = find(settings, from);
        if (!text)
            continue;
        if (auto date = parseDateWithPattern(text->text(), pattern))
            settings.insert_or_assign(std::string(to), Value(*date));
        settings.erase(settings.find(from));
    }
    if (!has(settings, runkey::inputQIFType))
        settings.emplace(std::string(runkey::inputQIFType), Value(0));
    prefs.setObject(prefkey::ControlSettings, Value(std::move(settings)));
}

// Steps 8, 9, 12 and 14: every default that is filled in where missing.
void fillDefaults(Context& ctx) {
    TvPrefs& prefs = ctx.prefs;
    if (!prefs.objectForKey(prefkey::amountsPrecision)) {
        prefs.setInteger(prefkey::amountsPrecision, 2);
        prefs.setInteger(prefkey::pricesPrecision, 4);
        prefs.setInteger(prefkey::sharesPrecision, 2);
    }
    if (!prefs.objectForKey(prefkey::OutputDateFormat)) {
        prefs.setObject(prefkey::OutputDateFormat, Value("M/d/yyyy"));
        prefs.setObject(prefkey::OutputDateFormatShortYear, Value("M/d/yy"));
    }
}

void askAboutUpdates(TvPrefs& prefs, Dialogs& dialogs) {
    if (prefs.objectForKey(prefkey::CheckForUpdates))
        return;
    std::size_t answer =
        dialogs.ask(std::string(text::updatesTitle), std::string(text::updatesText),
                    {std::string(text::yes), std::string(text::no)});
    prefs.setBool(prefkey::CheckForUpdates, answer == 0);
}

void fillLaterDefaults(Context& ctx) {
    TvPrefs& prefs = ctx.prefs;
    setIfMissing(prefs, prefkey::DescriptionOutput, Value("%d"));
    setIfMissing(prefs, prefkey::MemoOutput, Value("%m"));
    setIfMissing(prefs, prefkey::bccAmountsPrecision, Value(2));
    if (!prefs.objectForKey(prefkey::SUEnableAutomaticChecks) &&
        prefs.boolForKey(prefkey::CheckForUpdates))
        prefs.setObject(prefkey::SUEnableAutomaticChecks,
                        *prefs.objectForKey(prefkey::CheckForUpdates));
    const Value* root = prefs.objectForKey(prefkey::LastRootDirectory);
    if (!root || root->text().empty())
        prefs.setObject(prefkey::LastRootDirectory, Value(ctx.places.documents.string()));
}

} // namespace

void awakeFromNib(Context& ctx, Dialogs& dialogs) {
    firstRun(ctx, dialogs);
    ctx.prefs =
        TvPrefs::open(ctx.places.prefsFolder, kApplicationID, std::nullopt, ctx.clock.now());
    settleOptionList(ctx, dialogs);
    fillDefaults(ctx);
    convertLegacyRunSettings(ctx.prefs);
    askAboutUpdates(ctx.prefs, dialogs);
    fillLaterDefaults(ctx);
    settleKnowledgeAtStartUp(ctx.prefs);
    // This reads the top-level key, not the option of the same name; the preferences dialog
    // reads the option. Both have always behaved so.
    setDateFormatters(ctx.prefs, ctx.output,
                      ctx.prefs.boolForKey(prefkey::outputEuropeanDates) ? "d/M" : "M/d");
    ctx.prefs.synchronize();
}

} // namespace tavvel
