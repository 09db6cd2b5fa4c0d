// A tree dialog with a page of every kind of control, the Log File page, and an empty one; values that differ from
// their defaults, and one that an administrator decides.
#pragma once

#include "config/global/global_config.h"
#include "config/session/session_values.h"
#include "dialogs/kit/record_info.h"
#include "dialogs/session/log_file_page.h"
#include "stores/memory_store.h"
#include "tests/dialogs/kit_page.h"
#include "tests/support/hive_folders.h"
#include "tests/support/page_driver.h"

namespace ostrand::test {

struct KitValues : KitRecord {
    KitValues() : KitRecord(nullptr)
    {
        transferMode = 2;
        hostname = u"router.lab";
        password = u"secret";
        AcceptChanges();
    }
};

struct KitScene {
    KitScene()
    {
        auto& rows = kit.At<VReportControl>(KitPage::Rows);
        for (const auto& [expect, send] : {std::pair{u"ogin:", u"ann"}, {u"assword:", u"*****"}, {u"$", u"cd work"}})
            rows.Insert(rows.GetCount(), {expect, send});
        for (const char16_t* const name : {u"Lab", u"Office", u"Home"})
            kit.At<VListControl>(KitPage::Names).Add(name, 0);
        dialog.AddPages({{&kit}, {&log, &kit}, {&other}});
    }
    explicit KitScene(std::string_view policy)
    {
        hives.Write("machine/Software/Policies/Hollowmere.ini", policy);
        dialog.AddPages({{&kit}, {&log, &kit}, {&other}});
    }

    HiveFolders hives;
    KitValues record;
    KitRecord defaults{nullptr};
    KitGlobals globals{nullptr}, globalDefaults{nullptr};
    VRecordInfo<KitRecord> info{record, defaults};
    VRecordInfo<KitGlobals> globalInfo{globals, globalDefaults};
    VUnknownPointer<GlobalConfig> globalConfig = VUnknownPointer<GlobalConfig>::Adopt(new GlobalConfig(nullptr, false));
    SessionValues session{nullptr, *globalConfig, true};
    ScriptedServices services;
    VPropertyPageStateMap states;
    KitPage kit{record, {&info, &globalInfo}};
    SessionLogFilePage log{session};
    VPropertyTreePage other{kEmptyPage};
    TestTreeDialog dialog{u"Session Options - Router", VTreeStyle::Plain, &states, services};
};

} // namespace ostrand::test
