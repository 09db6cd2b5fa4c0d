#include "tests/dialogs/kit_page.h"

namespace ostrand::test {

namespace {

using C = KitRecord;
constexpr std::array kRows = {
    Bool<&C::beepOnError>(u"Beep On Error", true, u"Whether a failed command sounds the bell."),
    TriState<&C::showScrollbar>(u"Show Scrollbar", VTriState::Undetermined, u"Whether a scrollbar is shown."),
    Int<&C::retryCount>(u"Retry Count", 3, u"How often a lost connection is tried again.", Within{1, 20},
                        Formerly{u"Attempts"}),
    Int<&C::wrapLines>(u"Wrap Lines", 0, u"Whether long lines go on below."),
    Int<&C::transferMode>(u"Transfer Mode", 0, u"How files are sent."),
    Int<&C::parity>(u"Parity", 0, u"What the parity bit is."),
    UInt<&C::packetSize>(u"Packet Size", 512, u"Bytes of a packet."),
    String<&C::hostname>(u"Hostname", u"", u"Where to connect."),
    String<&C::encoding>(u"Encoding", u"Default", u"What bytes stand for."),
    String<&C::nickname>(u"Nickname", u"", u"What the machine is called."),
    Encoded<&C::password>(u"Password", u"The word that opens the door."),
};
static_assert(NamesAreUnique(kRows));

constexpr std::array kGlobalRows = {
    Bool<&KitGlobals::showScrollbar>(u"Show Scrollbar", true, u"Whether a scrollbar is shown."),
};

using P = KitPage;
using namespace layout;

// clang-format off
constexpr auto kPanel = layout::Page(u"",
    Field(u"&Limit:", Edit(KitPanel::Limit, MaxChars{3})),
    Field(u"&Unit:", DropList(KitPanel::Unit, Item(u"KB", 7), Item(u"MB", 8))));

constexpr auto kPage = layout::Page(u"Kit\nEvery Kind of Control",
    Group(u"&Boxes",
        Label(u"A word on all of them."),
        Check(P::Beep, u"Beep on &error", Also{u"sound bell"}),
        TriState(P::Scrollbar, u"Show s&crollbar"),
        Check(P::Wrap, u"&Wrap lines")),
    Row(Field(u"&Retries:", Edit(P::Retries, DigitsOnly, Width{5})),
        Stretch(),
        Field(u"Pac&ket size:", Edit(P::Packet, Width{8}))),
    Group(u"&Transfer",
        Radio(P::Transfer, Option(u"&ASCII"), Option(u"&Binary"), Option(u"Auto&matic"))),
    Field(u"Pari&ty:", DropList(P::Parity, Item(u"None", 0), Item(u"Odd", 7), Item(u"Even", 9))),
    Field(u"&Host:", Edit(P::Host, MaxChars{20}, Grow)),
    Field(u"E&ncoding:", DropList(P::Encoding, Item(u"Default"), Item(u"UTF-8"))),
    Field(u"N&ick:", Edit(P::Nick, ReadOnly)),
    Field(u"&Password:", Edit(P::Password, Masked)),
    Group(u"Rema&rks", MultiLine(P::Remarks, Lines{3})),
    Row(Report(P::Rows, Lines{5}, MultiSelect, layout::Heading(u"Expect", 129), layout::Heading(u"Send", 138)),
        Column(IconButton(P::MoveUp, VIcon::Up, u"Up"), Button(P::AddRow, u"A&dd..."))),
    Field(u"Names:", DropList(P::Names, Sorted)),
    Place(P::Panel),
    Row(layout::Icon(P::Picture, VIcon::Information), Label(P::Hint, u"R&&D says 5 && 6")));
// clang-format on

} // namespace

const VSchema<KitRecord>& KitRecord::Schema()
{
    static const VSchema<KitRecord>& schema = *new VSchema<KitRecord>(kRows);
    return schema;
}

const VSchema<KitGlobals>& KitGlobals::Schema()
{
    static const VSchema<KitGlobals>& schema = *new VSchema<KitGlobals>(kGlobalRows);
    return schema;
}

KitPanel::KitPanel() : VForm(kPanel) {}

void KitPanel::DoDataExchange(VDataExchange& dx)
{
    DDX_CBIndex(dx, Unit, unit);
    VDDX_EnabledText(dx, Limit, limit);
    DDV_Range(dx, Limit, limit, 1, 10);
    dx.ThenWrite([this] { ++writes; });
    if (abandons)
        dx.Abandon();
}

KitPage::KitPage(KitRecord& record, std::initializer_list<const IRecordInfo*> infos)
    : VPropertyTreePage(kPage),
      beep(*this, Beep, record.beepOnError),
      scrollbar(*this, Scrollbar, record.showScrollbar),
      retries(*this, Retries, record.retryCount),
      wrap(*this, Wrap, record.wrapLines),
      transfer(*this, Transfer, record.transferMode),
      parity(*this, Parity, record.parity),
      packet(*this, Packet, record.packetSize, VWhen::WhileEnabled),
      host(*this, Host, record.hostname),
      encoding(*this, Encoding, record.encoding),
      nick(*this, Nick, record.nickname),
      password(*this, Password, record.password),
      remarks(*this, Remarks, record.remarks)
{
    for (const IRecordInfo* const info : infos)
        AddRecord(*info);
    Put(Panel, &panel);
}

bool KitPage::OnInitDialog()
{
    calls += u"init ";
    return VPropertyTreePage::OnInitDialog();
}

void KitPage::DoDataExchange(VDataExchange& dx)
{
    VPropertyTreePage::DoDataExchange(dx);
    dx.ExchangeForm(panel);
    if (abandons)
        dx.Abandon();
}

} // namespace ostrand::test
