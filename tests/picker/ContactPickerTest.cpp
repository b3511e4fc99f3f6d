// The picker dialog under Wine with the search service in this process: typed digits narrow the
// list, a contact with several numbers lists them formatted, OK, Cancel, taps and keys, and a
// service that is absent or answers with garbage.
#include "picker/ContactPicker.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "HostileServiceCalls.h"
#include "PickerWinSupport.h"
#include "base/Alert.h"
#include "base/ScreenInfo.h"
#include "phone/NumberTemplates.h"
#include "service/AddressBookGenerator.h"
#include "testing/WindowTestKit.h"

namespace {

int QuietAlert(const char16_t*, const char16_t*, uint32_t) {
    return kAlertAnswerOk;
}

/// Row `row` of the list as drawn (WM_PRINTCLIENT), and as `paint` draws it into a bitmap of
/// the list's size; true when every pixel of the row is the same.
template <typename Paint>
bool RowDrawnAs(FlickList& list, int row, Paint paint) {
    const shot::Image drawn = PrintClient(list.Hwnd());
    shot::Canvas canvas(drawn.width, drawn.height);
    const RECT rect = list.GetRowRect(row);
    paint(canvas.Dc(), rect);
    const shot::Image expected = canvas.Snapshot();
    for (int y = rect.top; y < rect.bottom; ++y) {
        for (int x = rect.left; x < rect.right; ++x) {
            if (drawn.At(x, y) != expected.At(x, y))
                return false;
        }
    }
    return true;
}

class ContactPickerTest : public ::testing::Test {
  protected:
    void SetUp() override {
        previousAlert_ = SetAlertHandler(&QuietAlert);
        service.service.SetContacts(KnownBook());
        templates.LoadDefaults();
        request.templates = &templates;
    }
    void TearDown() override { SetAlertHandler(previousAlert_); }

    InProcessService service;
    NumberTemplates templates;
    PickerRequest request;
    AlertHandler previousAlert_ = nullptr;
};

TEST_F(ContactPickerTest, TypedDigitsNarrowTheListAndCancelClosesWithTwo) {
    TestScreen screen(kQvga);
    DrivenPicker picker(request, service.client);
    int opening = -1;
    int afterTaps = -1;
    std::u16string typed;
    std::u16string searched;
    picker.onInit = [&](DrivenPicker& p) {
        opening = p.List().ItemCount();
        TapDigit(p.Keypad().Hwnd(), '3');
        TapDigit(p.Keypad().Hwnd(), '7');
        p.Step(0);
    };
    picker.steps.emplace_back([&](DrivenPicker& p) {
        afterTaps = p.List().ItemCount();
        typed = p.Keypad().Typed().c_str();
        searched = p.Model().LastSearched().c_str();
        TapSoftKey(p.SoftKeys(), kCancelKey);
    });
    EXPECT_EQ(picker.RunModal(screen.Board()), 2);
    ASSERT_EQ(picker.stepsRun, 1);
    EXPECT_EQ(opening, 5);
    EXPECT_EQ(typed, u"37");
    EXPECT_EQ(searched, u"37");
    EXPECT_EQ(afterTaps, 2) << "Fred and Freya";
    EXPECT_EQ(request.oid, 0u) << "nothing handed back on cancel";
}

TEST_F(ContactPickerTest, HardwareDigitKeysTypeOnTheKeypad) {
    TestScreen screen(kQvga);
    DrivenPicker picker(request, service.client);
    std::u16string typed;
    int rows = -1;
    picker.onInit = [&](DrivenPicker& p) {
        // The keys reach the dialog as the list hands them on, and the dialog passes them on.
        SendMessageW(p.Hwnd(), WM_KEYDOWN, '3', 1);
        SendMessageW(p.Hwnd(), WM_KEYDOWN, '7', 1);
        SendMessageW(p.Hwnd(), WM_KEYDOWN, '3', 1);
        SendMessageW(p.Hwnd(), WM_KEYDOWN, '1', 1);  // the hardware "1" is backspace
        SendMessageW(p.Hwnd(), WM_KEYDOWN, '3', 1);
        typed = p.Keypad().Typed().c_str();
        rows = p.List().ItemCount();
        p.End(2);
    };
    picker.RunModal(screen.Board());
    EXPECT_EQ(typed, u"373");
    EXPECT_EQ(rows, 2);
}

TEST_F(ContactPickerTest, SeveralNumbersAreListedFormattedAndOkTakesTheSelectedOne) {
    TestScreen screen(kQvga);
    DrivenPicker picker(request, service.client);
    bool inNumbers = false;
    int rows = -1;
    std::u16string shown[3];
    picker.onInit = [&](DrivenPicker& p) {
        p.List().SetSelection(ResultIndex(p.Model(), 10), false);
        TapSoftKey(p.SoftKeys(), kOkKey);
        p.Step(0);
    };
    picker.steps.emplace_back([&](DrivenPicker& p) {
        inNumbers = p.Model().InNumbers();
        rows = p.List().ItemCount();
        for (int i = 0; i < 3; ++i) {
            NumberLine line;
            p.Model().NumberLineAt(i, &templates, line);
            shown[i] = line.number.c_str();
        }
        p.List().SetSelection(2, false);
        TapSoftKey(p.SoftKeys(), kOkKey);
    });
    EXPECT_EQ(picker.RunModal(screen.Board()), 1);
    EXPECT_TRUE(inNumbers);
    EXPECT_EQ(rows, 3);
    EXPECT_EQ(shown[0], u"8 (123) 456-78-90");
    EXPECT_EQ(shown[1], u"+7 (123) 456-78-90");
    EXPECT_EQ(shown[2], u"555-01-00") << "dashes collapsed, then \"###-##-##\"";
    EXPECT_EQ(request.oid, 10u);
    EXPECT_EQ(request.number, Str(u"555-0100")) << "the number as stored, not as shown";
    EXPECT_EQ(request.numberLabel, Str(u"Dacha"));
    EXPECT_EQ(request.numberType, 100);
}

TEST_F(ContactPickerTest, StageTwoRowsShowTheTypeLeftAndTheFormattedNumberRight) {
    TestScreen screen(kVga);
    request.look = screen.SkinLook();
    DrivenPicker picker(request, service.client);
    ASSERT_NE(picker.CreateModeless(screen.Board(), true), nullptr);
    picker.List().SetSelection(ResultIndex(picker.Model(), 10), false);
    SendMessageW(picker.Hwnd(), WM_COMMAND, IDOK, 0);
    ASSERT_TRUE(picker.Model().InNumbers());
    const RowLook& look = picker.RowStyle();
    const auto numberRow = [&](const char16_t* number, const char16_t* label, bool selected) {
        return [&look, number, label, selected](HDC dc, const RECT& rect) {
            PaintRowBackground(dc, rect, 0, selected, look);
            PaintNumberRow(dc, rect, NumberLine{Str(label), Str(number)}, selected, look);
        };
    };
    const Str home = Str(PhoneTypeLabel(1));
    EXPECT_TRUE(RowDrawnAs(picker.List(), 0, numberRow(u"8 (123) 456-78-90", home, true)));
    EXPECT_FALSE(RowDrawnAs(picker.List(), 0, numberRow(u"81234567890", home, true)))
        << "the check can tell a number as stored";
    EXPECT_TRUE(RowDrawnAs(picker.List(), 2, numberRow(u"555-01-00", u"Dacha", false)));

    // Stage 1 again: a contact's name over its second text.
    SendMessageW(picker.Hwnd(), WM_COMMAND, IDCANCEL, 0);
    ASSERT_EQ(ResultIndex(picker.Model(), 10), 1);
    ContactLine line;
    line.name = u"Smith, Fred";
    line.second = u"Acme";
    EXPECT_TRUE(RowDrawnAs(picker.List(), 1, [&](HDC dc, const RECT& rect) {
        PaintRowBackground(dc, rect, 1, false, look);
        PaintContactRow(dc, rect, line, false, look);
    }));

    // Typed digits: the matched letters of the name in the highlight colours.
    for (WPARAM key : {'3', '7', '3'})
        SendMessageW(picker.Hwnd(), WM_KEYDOWN, key, 1);
    ASSERT_EQ(ResultIndex(picker.Model(), 10), 0);
    line.runs.Add(TextRun{7, 3});
    EXPECT_TRUE(RowDrawnAs(picker.List(), 0, [&](HDC dc, const RECT& rect) {
        PaintRowBackground(dc, rect, 0, true, look);
        PaintContactRow(dc, rect, line, true, look);
    }));
    line.runs.RemoveAll();
    EXPECT_FALSE(RowDrawnAs(picker.List(), 0, [&](HDC dc, const RECT& rect) {
        PaintRowBackground(dc, rect, 0, true, look);
        PaintContactRow(dc, rect, line, true, look);
    })) << "the check can tell a name without its run";
}

TEST_F(ContactPickerTest, CancelInStageTwoShowsTheSameListWithTheSameDigits) {
    TestScreen screen(kQvga);
    DrivenPicker picker(request, service.client);
    std::vector<uint32_t> before;
    std::vector<uint32_t> after;
    std::u16string searched;
    std::u16string typed;
    int rows = -1;
    bool inNumbers = true;
    picker.onInit = [&](DrivenPicker& p) {
        TapDigit(p.Keypad().Hwnd(), '3');
        TapDigit(p.Keypad().Hwnd(), '7');
        TapDigit(p.Keypad().Hwnd(), '3');
        p.Step(0);
    };
    picker.steps.emplace_back([&](DrivenPicker& p) {
        before.assign(p.Model().Results().begin(), p.Model().Results().end());
        p.List().SetSelection(ResultIndex(p.Model(), 10), false);
        TapSoftKey(p.SoftKeys(), kOkKey);
        p.Step(1);
    });
    picker.steps.emplace_back([&](DrivenPicker& p) {
        TapDigit(p.Keypad().Hwnd(), '4');  // typed in stage 2: no search
        TapSoftKey(p.SoftKeys(), kCancelKey);
        p.Step(2);
    });
    picker.steps.emplace_back([&](DrivenPicker& p) {
        inNumbers = p.Model().InNumbers();
        after.assign(p.Model().Results().begin(), p.Model().Results().end());
        searched = p.Model().LastSearched().c_str();
        typed = p.Keypad().Typed().c_str();
        rows = p.List().ItemCount();
        TapSoftKey(p.SoftKeys(), kCancelKey);
    });
    EXPECT_EQ(picker.RunModal(screen.Board()), 2);
    ASSERT_EQ(picker.stepsRun, 3);
    EXPECT_FALSE(inNumbers);
    EXPECT_EQ(before, (std::vector<uint32_t>{10, 20}));
    EXPECT_EQ(after, before);
    EXPECT_EQ(searched, u"373");
    EXPECT_EQ(rows, 2);
    EXPECT_EQ(typed, u"3734") << "the keypad keeps what was typed";
}

TEST_F(ContactPickerTest, ATappedContactWithOneNumberIsTakenAtOnce) {
    TestScreen screen(kQvga);
    DrivenPicker picker(request, service.client);
    picker.onInit = [&](DrivenPicker& p) { TapRow(p.List(), ResultIndex(p.Model(), 20)); };
    EXPECT_EQ(picker.RunModal(screen.Board()), 1);
    EXPECT_EQ(request.oid, 20u);
    EXPECT_EQ(request.number, Str(u"1234567"));
    EXPECT_EQ(request.numberType, 1);
}

TEST_F(ContactPickerTest, AContactWithoutNumbersClosesWithAnEmptyNumber) {
    TestScreen screen(kQvga);
    DrivenPicker picker(request, service.client);
    request.number = u"old";
    picker.onInit = [&](DrivenPicker& p) {
        p.List().SetSelection(ResultIndex(p.Model(), 30), false);
        PostMessageW(p.Hwnd(), WM_COMMAND, IDOK, 0);
    };
    EXPECT_EQ(picker.RunModal(screen.Board()), 1);
    EXPECT_EQ(request.oid, 30u);
    EXPECT_TRUE(request.number.IsEmpty());
}

TEST_F(ContactPickerTest, EnterOnTheListChoosesAndWithoutWantingANumberNoneIsShown) {
    TestScreen screen(kQvga);
    request.wantNumber = false;
    DrivenPicker picker(request, service.client);
    picker.onInit = [&](DrivenPicker& p) {
        p.List().SetSelection(ResultIndex(p.Model(), 10), false);
        PostMessageW(p.List().Hwnd(), WM_KEYDOWN, VK_RETURN, 1);
        PostMessageW(p.List().Hwnd(), WM_KEYUP, VK_RETURN, 0xC0000001);
    };
    EXPECT_EQ(picker.RunModal(screen.Board()), 1);
    EXPECT_EQ(request.oid, 10u);
    EXPECT_TRUE(request.number.IsEmpty());
    EXPECT_FALSE(picker.Model().InNumbers());
}

TEST_F(ContactPickerTest, WithoutTheServiceTheListIsEmptyAndOnlyCancelWorks) {
    TestScreen screen(kQvga);
    HostileServiceCalls absent;
    absent.absent = true;
    SearchServiceClient client(absent);
    DrivenPicker picker(request, client);
    int rows = -1;
    bool open = false;
    picker.onInit = [&](DrivenPicker& p) {
        rows = p.List().ItemCount();
        TapDigit(p.Keypad().Hwnd(), '5');
        TapRow(p.List(), 0);
        TapSoftKey(p.SoftKeys(), kOkKey);
        p.Step(0);
    };
    picker.steps.emplace_back([&](DrivenPicker& p) {
        open = IsWindow(p.Hwnd()) != FALSE;
        UpdateWindow(p.List().Hwnd());
        TapSoftKey(p.SoftKeys(), kCancelKey);
    });
    EXPECT_EQ(picker.RunModal(screen.Board()), 2);
    EXPECT_EQ(rows, 0);
    EXPECT_TRUE(open) << "OK did nothing";
}

TEST_F(ContactPickerTest, GarbageRepliesShowWhatTheyCanAndNeverCrash) {
    TestScreen screen(kQvga);
    HostileServiceCalls garbage;
    garbage.replies[search_service::kSearchText] =
        ReplyBytes().U32(5000).U32(7).U32(8).U32(9).Text(u"no-plus-here").bytes;
    garbage.replies[search_service::kResultStrings] = ReplyBytes().Text(u"one").bytes;
    garbage.details[7] = ReplyBytes().U32(7).U32(40u << 16).Text(u"Seven").Char(0).Char(0).bytes;
    garbage.details[8] = std::vector<uint8_t>(17, 0xEE);
    // 9 has no details at all; a phones text with an odd tail.
    SearchServiceClient client(garbage);
    DrivenPicker picker(request, client);
    int rows = -1;
    picker.onInit = [&](DrivenPicker& p) {
        rows = p.List().ItemCount();
        RedrawWindow(p.Hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
        TapRow(p.List(), 2);
    };
    EXPECT_EQ(picker.RunModal(screen.Board()), 1);
    EXPECT_GE(rows, 3);
    EXPECT_EQ(request.oid, 9u) << "no details: chosen without a number";
    EXPECT_TRUE(request.number.IsEmpty());
}

TEST_F(ContactPickerTest, NoContactsAtAll) {
    TestScreen screen(kQvga);
    service.service.SetContacts({});
    DrivenPicker picker(request, service.client);
    int rows = -1;
    picker.onInit = [&](DrivenPicker& p) {
        rows = p.List().ItemCount();
        UpdateWindow(p.List().Hwnd());
        TapSoftKey(p.SoftKeys(), kOkKey);
        TapSoftKey(p.SoftKeys(), kCancelKey);
    };
    EXPECT_EQ(picker.RunModal(screen.Board()), 2);
    EXPECT_EQ(rows, 0);
}

TEST_F(ContactPickerTest, AHundredThousandContactsScrollToTheLastAndChooseIt) {
    TestScreen screen(kVga);
    service.service.SetContacts(GenerateAddressBook(100000, 11));
    request.wantNumber = false;
    DrivenPicker picker(request, service.client);
    int rows = -1;
    uint32_t last = 0;
    picker.onInit = [&](DrivenPicker& p) {
        rows = p.List().ItemCount();
        last = p.Model().Results()[rows - 1];
        p.List().SetSelection(rows - 1, true);
        p.List().Reveal(rows - 1);
        UpdateWindow(p.List().Hwnd());
        TapSoftKey(p.SoftKeys(), kOkKey);
    };
    EXPECT_EQ(picker.RunModal(screen.Board()), 1);
    EXPECT_EQ(rows, 100000);
    EXPECT_EQ(request.oid, last);
}

TEST_F(ContactPickerTest, AMalformedKeypadSettingGivesAKeypadWithoutLetters) {
    TestScreen screen(kQvga);
    const std::vector<uint8_t> text = {'A', 0, 'B', 0, 'C', 0};  // a string, not binary
    KeypadSetting setting(0, &text, REG_SZ);
    DrivenPicker picker(request, service.client);
    int keys = -1;
    std::u16string typed;
    picker.onInit = [&](DrivenPicker& p) {
        keys = p.Labels().labels.Size();
        RedrawWindow(p.Keypad().Hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        TapDigit(p.Keypad().Hwnd(), '9');
        p.Step(0);
    };
    picker.steps.emplace_back([&](DrivenPicker& p) {
        typed = p.Keypad().Typed().c_str();
        TapSoftKey(p.SoftKeys(), kCancelKey);
    });
    EXPECT_EQ(picker.RunModal(screen.Board()), 2);
    EXPECT_EQ(keys, 0);
    EXPECT_EQ(typed, u"9") << "the keys still type";

    // Binary garbage: an odd byte count and no key string in it.
    const std::vector<uint8_t> junk = {0xFF, 0xFE, '/', 0, ' ', 0, 0x41};
    KeypadSetting binary(0, &junk, REG_BINARY);
    DrivenPicker again(request, service.client);
    again.onInit = [&](DrivenPicker& p) {
        keys = p.Labels().labels.Size();
        p.End(2);
    };
    again.RunModal(screen.Board());
    EXPECT_EQ(keys, 0);
}

TEST_F(ContactPickerTest, ListAboveKeypadAndTheDefaultFont) {
    for (const device::Profile& profile : {kQvga, kVga}) {
        SCOPED_TRACE(profile.width);
        TestScreen screen(profile);
        DrivenPicker picker(request, service.client);
        ASSERT_NE(picker.CreateModeless(screen.Board(), true), nullptr);
        const Rect content = picker.ContentArea();
        RECT list{};
        RECT keypad{};
        GetWindowRect(picker.List().Hwnd(), &list);
        GetWindowRect(picker.Keypad().Hwnd(), &keypad);
        MapWindowPoints(nullptr, picker.Hwnd(), reinterpret_cast<POINT*>(&list), 2);
        MapWindowPoints(nullptr, picker.Hwnd(), reinterpret_cast<POINT*>(&keypad), 2);
        EXPECT_EQ(list.top, content.top);
        EXPECT_EQ(list.bottom, keypad.top);
        EXPECT_EQ(keypad.bottom, content.bottom);
        EXPECT_EQ(keypad.bottom - keypad.top, content.Height() * 2 / 5);
        EXPECT_EQ(list.right - list.left, content.Width());

        LOGFONTW font{};
        ASSERT_NE(GetObjectW(picker.Font(), sizeof(font), &font), 0);
        EXPECT_EQ(font.lfHeight, -static_cast<LONG>(profile.dpi * 10 / 72.0 + 0.5));
        EXPECT_EQ(font.lfWeight, 700);
        EXPECT_STREQ(font.lfFaceName, L"Tahoma");
    }
}

TEST_F(ContactPickerTest, AResizedPickerLaysItsPartsOutAgain) {
    TestScreen screen(kQvga);
    DrivenPicker picker(request, service.client);
    HWND hwnd = picker.CreateModeless(screen.Board(), true);
    ASSERT_NE(hwnd, nullptr);
    MoveWindow(hwnd, 0, 26, 240, 200, TRUE);
    const Rect content = picker.ContentArea();
    RECT keypad{};
    GetWindowRect(picker.Keypad().Hwnd(), &keypad);
    MapWindowPoints(nullptr, hwnd, reinterpret_cast<POINT*>(&keypad), 2);
    EXPECT_EQ(keypad.bottom, content.bottom);
    EXPECT_EQ(keypad.bottom - keypad.top, content.Height() * 2 / 5);
    RECT list{};
    GetWindowRect(picker.List().Hwnd(), &list);
    MapWindowPoints(nullptr, hwnd, reinterpret_cast<POINT*>(&list), 2);
    EXPECT_EQ(list.bottom, keypad.top);
}

TEST_F(ContactPickerTest, AContactDeletedWhileListedIsChosenWithoutANumber) {
    TestScreen screen(kQvga);
    DrivenPicker picker(request, service.client);
    picker.onInit = [&](DrivenPicker& p) {
        service.service.RemoveContact(10);
        TapRow(p.List(), ResultIndex(p.Model(), 10));
    };
    EXPECT_EQ(picker.RunModal(screen.Board()), 1);
    EXPECT_EQ(request.oid, 10u);
    EXPECT_TRUE(request.number.IsEmpty());
}

TEST_F(ContactPickerTest, TheLooksFontIsUsedWhenGiven) {
    TestScreen screen(kQvga);
    request.look = screen.SkinLook();
    DrivenPicker picker(request, service.client);
    ASSERT_NE(picker.CreateModeless(screen.Board(), false), nullptr);
    EXPECT_EQ(picker.Font(), request.look.font);
    EXPECT_EQ(picker.SmallFont(), request.look.smallFont);
}

TEST_F(ContactPickerTest, TheModelessPickerEndsByItselfOnCancel) {
    TestScreen screen(kQvga);
    DrivenPicker picker(request, service.client);
    HWND hwnd = picker.CreateModeless(screen.Board(), true);
    ASSERT_NE(hwnd, nullptr);
    EXPECT_TRUE(IsWindowVisible(hwnd));
    EXPECT_EQ(picker.List().ItemCount(), 5);
    SendMessageW(hwnd, WM_COMMAND, IDCANCEL, 0);
    EXPECT_FALSE(IsWindow(hwnd));
    EXPECT_EQ(picker.EndCode(), 2);
}

TEST_F(ContactPickerTest, RunContactPickerUsesTheProcessService) {
    TestScreen screen(kQvga);
    SearchServiceClient::SetProcessCalls(&service.calls);
    // Nothing to tap from outside RunContactPicker: a posted Cancel ends it as soon as it runs.
    struct Canceller {
        static void CALLBACK Fire(HWND, UINT, UINT_PTR id, DWORD) {
            KillTimer(nullptr, id);
            HWND dialog = GetActiveWindow();
            PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        }
    };
    const UINT_PTR timer = SetTimer(nullptr, 0, 50, &Canceller::Fire);
    EXPECT_EQ(RunContactPicker(request, screen.Board()), 2);
    KillTimer(nullptr, timer);
    SearchServiceClient::SetProcessCalls(nullptr);
}

}  // namespace
