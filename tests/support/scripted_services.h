// Dialog services that follow a script: each box, chooser or dialog must be expected, and what is expected must come. A
// call that isn't expected fails the test, is answered by the answer that changes least, and never waits.
//
//     ScriptedServices services;
//     services.ExpectMessage(kResultYes);
//     services.ExpectFile(u"/tmp/session.log");
//     services.ExpectDialog([](VDialog& dialog) { FormDriver(dialog).Click(Ok); });
#pragma once

#include "dialogs/kit/dialog.h"

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace ostrand::test {

enum class Call {
    Message,
    Report,
    Dialog,
    Folder,
    File,
    Color,
    Font,
    Printer,
    Certificate,
    NewCertificate,
    Sessions,
    Sound,
    Address,
    Program,
    Help
};

class ScriptedServices : public IDialogServices {
public:
    struct Step {
        Call call;
        int result = kResultOk;                       ///< of a message
        std::optional<VUnicodeString> text;           ///< what is chosen; none: cancelled
        std::function<void(VDialog&)> drive = {};     ///< of a dialog
        std::function<void(void* request)> fill = {}; ///< of a choice that is no text
    };

    ~ScriptedServices() override
    {
        for (const Step& step : m_script)
            ADD_FAILURE() << "expected and never called: " << static_cast<int>(step.call);
    }

    void Expect(Step step) { m_script.push_back(std::move(step)); }
    void ExpectMessage(int result = kResultOk) { Expect({.call = Call::Message, .result = result, .text = {}}); }
    void ExpectFile(const VUnicodeString& path) { Expect({.call = Call::File, .text = path}); }
    void ExpectDialog(std::function<void(VDialog&)> drive)
    {
        Expect({.call = Call::Dialog, .text = {}, .drive = std::move(drive)});
    }
    void ExpectCancelled(Call call) { Expect({.call = call, .text = {}}); }

    std::vector<VMessage> messages;
    std::vector<VFileRequest> files;
    std::vector<VUnicodeString> texts;        ///< titles, addresses, paths and topics of all other calls
    std::map<unsigned, unsigned> virtualKeys; ///< by scan code
    bool waiting = false;

    int ShowMessage(void*, const VMessage& message) override
    {
        messages.push_back(message);
        const std::optional<Step> step = Take(Call::Message, message.text);
        if (step)
            return step->result;
        return message.buttons == VButtons::Ok ? kResultOk : kResultCancel;
    }
    void Report(int, IReportMessageParams& report) override { Take(Call::Report, report.GetText()); }
    void RunModal(VDialog& dialog) override
    {
        const std::optional<Step> step = Take(Call::Dialog, dialog.GetTitle());
        if (step && step->drive) {
            dialog.RunPosted();
            step->drive(dialog);
            dialog.RunPosted();
        }
        if (dialog.IsRunning()) {
            EXPECT_FALSE(step && step->drive) << "the script leaves the dialog open";
            dialog.EndDialog(kResultCancel);
        }
    }
    bool PickFolder(void*, const VUnicodeString& title, VUnicodeString& path) override
    {
        return Choose(Call::Folder, title, path);
    }
    bool PickFile(void*, VFileRequest& request) override
    {
        files.push_back(request);
        return Choose(Call::File, request.title, request.path);
    }
    bool PickColor(void*, VColorRequest& request) override { return Fill(Call::Color, &request); }
    uint32_t NearestColor(uint32_t color) override { return color; }
    uint32_t SystemColor(VSystemColor which) override { return which == VSystemColor::Window ? 0xFFFFFF : 0; }
    bool PickFont(void*, VFontRequest& request) override { return Fill(Call::Font, &request); }
    bool SetUpPrinter(void*, VPrinterChoice& printer) override { return Fill(Call::Printer, &printer); }
    bool PickCertificate(void*, VUnicodeString& path) override { return Choose(Call::Certificate, {}, path); }
    bool CanCreateCertificate() override { return true; }
    bool CreateCertificate(void*, int, VUnicodeString& path) override { return Choose(Call::NewCertificate, {}, path); }
    bool PickSessions(const VUnicodeString& title, VArray<VUnicodeString>& paths) override
    {
        VUnicodeString path;
        if (!Choose(Call::Sessions, title, path))
            return false;
        paths.Append(path);
        return true;
    }
    VImageList* SessionImages() override { return nullptr; }
    unsigned VirtualKeyOf(unsigned scanCode, bool) override { return virtualKeys[scanCode]; }
    VUnicodeString KeyText(unsigned, bool, bool) override { return {}; }
    bool IsKeyDown(VKeyModifier) override { return false; }
    void PlaySound(const VUnicodeString& path) override { Note(Call::Sound, path); }
    bool OpenAddress(const VUnicodeString& address) override { return Note(Call::Address, address); }
    bool StartProgram(const VUnicodeString& path, const VUnicodeString&) override { return Note(Call::Program, path); }
    unsigned CountIcons(const VUnicodeString&) override { return 0; }
    VIconHandle LoadIcon(const VUnicodeString&, unsigned) override { return 0; }
    void ReleaseIcon(VIconHandle) override {}
    void SetWaiting(bool isWaiting) override { waiting = isWaiting; }
    void ShowHelp(const VUnicodeString& topic) override { Note(Call::Help, topic); }

private:
    std::optional<Step> Take(Call call, const VUnicodeString& text)
    {
        if (m_script.empty() || m_script.front().call != call) {
            ADD_FAILURE() << "not expected: " << static_cast<int>(call) << " \"" << ToUtf8(text) << '"';
            return std::nullopt;
        }
        const Step step = std::move(m_script.front());
        m_script.pop_front();
        return step;
    }
    bool Note(Call call, const VUnicodeString& text)
    {
        texts.push_back(text);
        return Take(call, text).has_value();
    }
    bool Choose(Call call, const VUnicodeString& title, VUnicodeString& chosen)
    {
        texts.push_back(title);
        const std::optional<Step> step = Take(call, title);
        if (!step || !step->text)
            return false;
        chosen = *step->text;
        return true;
    }
    bool Fill(Call call, void* request)
    {
        const std::optional<Step> step = Take(call, {});
        if (step && step->fill)
            step->fill(request);
        return step && step->fill;
    }

    std::deque<Step> m_script;
};

} // namespace ostrand::test
