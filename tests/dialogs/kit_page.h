// A page with a control of every kind, on a record of its own. Views show it, too.
#pragma once

#include "dialogs/kit/property_page.h"
#include "profile/encoded_string.h"
#include "profile/multi_line.h"

namespace ostrand::test {

class KitRecord : public VProfileRecord {
public:
    using ReadContext = VReadContext;

    explicit KitRecord(const VProfileKey* key) { Schema().Load(*this, {key, false}); }
    VProfileData* GetMember(int index) override { return Schema().GetMember(*this, index); }
    static const VSchema<KitRecord>& Schema();

    VProfile<bool> beepOnError;
    VProfile<VTriState> showScrollbar;
    VProfile<int> retryCount, wrapLines, transferMode, parity;
    VProfile<unsigned> packetSize;
    VProfileString hostname, encoding, nickname;
    VProfileEncodedString password;
    VProfileMultiLineString remarks; // outside the schema
};

/// The record that third states refer to.
class KitGlobals : public VProfileRecord {
public:
    using ReadContext = VReadContext;

    explicit KitGlobals(const VProfileKey* key) { Schema().Load(*this, {key, false}); }
    VProfileData* GetMember(int index) override { return Schema().GetMember(*this, index); }
    static const VSchema<KitGlobals>& Schema();

    VProfile<bool> showScrollbar;
};

/// Stands in the page's place, as parts do that other modules bring.
class KitPanel : public VForm {
public:
    enum Id : VControlId { Limit = 1, Unit };
    KitPanel();
    unsigned limit = 5;
    int unit = 1;
    int writes = 0;
    bool abandons = false;

private:
    void DoDataExchange(VDataExchange& dx) override;
};

class KitPage : public VPropertyTreePage {
public:
    enum Id : VControlId {
        Beep = 1,
        Scrollbar,
        Retries,
        Wrap,
        Transfer,
        Parity,
        Packet,
        Host,
        Encoding,
        Nick,
        Password,
        Remarks,
        Rows,
        AddRow,
        MoveUp,
        Panel,
        Hint,
        Picture,
        Names
    };

    explicit KitPage(KitRecord& record, std::initializer_list<const IRecordInfo*> infos = {});

    void OnSetActive() override { calls += u"active "; }
    void OnOK() override { calls += u"ok "; }
    void OnCancel() override { calls += u"cancel "; }
    void OnShow(bool isShown) override { calls += isShown ? u"shown " : u"hidden "; }
    bool OnInitDialog() override;

    using VForm::On; // for tests to watch events

    VUnicodeString calls;
    KitPanel panel;
    bool abandons = false; ///< the next save

    VEdited<bool> beep;
    VEdited<VTriState> scrollbar;
    VEdited<int> retries;
    VEdited<bool> wrap; // of a number
    VEdited<int> transfer, parity;
    VEdited<unsigned> packet;
    VEdited<VUnicodeString> host, encoding, nick, password, remarks;

private:
    void DoDataExchange(VDataExchange& dx) override;
};

} // namespace ostrand::test
