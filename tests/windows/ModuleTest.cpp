// The DLL as a host sees it: its export table and the lifecycle of the one
// remote control that the exported functions manage.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "WinTestSupport.h"

namespace {

class ModuleTest : public ::testing::Test {
  protected:
    void SetUp() override { RemoveSettings(); }
    void TearDown() override {
        PXColor_Close();
        RemoveSettings();
    }
};

std::vector<std::string> ExportedNames(HMODULE module, WORD* machine, WORD* magic) {
    const auto* base = reinterpret_cast<const unsigned char*>(module);
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* nt = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    *machine = nt->FileHeader.Machine;
    *magic = nt->OptionalHeader.Magic;
    const IMAGE_DATA_DIRECTORY& dir =
        nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    const auto* exports =
        reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(base + dir.VirtualAddress);
    const auto* names = reinterpret_cast<const DWORD*>(base + exports->AddressOfNames);
    std::vector<std::string> result;
    for (DWORD i = 0; i < exports->NumberOfNames; ++i)
        result.push_back(reinterpret_cast<const char*>(base + names[i]));
    return result;
}

TEST_F(ModuleTest, ExportTableHoldsExactlyTheTenUndecoratedFunctions) {
    HMODULE module = GetModuleHandleW(L"VellColor.dll");
    ASSERT_NE(module, nullptr);
    WORD machine = 0, magic = 0;
    const std::vector<std::string> names = ExportedNames(module, &machine, &magic);
#if defined(__i386__)
    EXPECT_EQ(machine, IMAGE_FILE_MACHINE_I386);
    EXPECT_EQ(magic, IMAGE_NT_OPTIONAL_HDR32_MAGIC);
#else  // the 64-bit test build
    EXPECT_EQ(machine, IMAGE_FILE_MACHINE_AMD64);
    EXPECT_EQ(magic, IMAGE_NT_OPTIONAL_HDR64_MAGIC);
#endif

    std::set<std::string> functions;
    for (const std::string& name : names)
        if (name.rfind("PXColor_", 0) == 0) functions.insert(name);
    const std::set<std::string> expected = {
        "PXColor_Open",      "PXColor_Close",     "PXColor_ShowWindow",
        "PXColor_GetShow",   "PXColor_SetTitle",  "PXColor_GetGradation",
        "PXColor_GetTile",   "PXColor_GetStripe", "PXColor_GetDensityPattern",
        "PXColor_GetMapping"};
    EXPECT_EQ(functions, expected);
    for (const std::string& name : expected)
        EXPECT_NE(GetProcAddress(module, name.c_str()), nullptr) << name;
    // The dialog class is exported too, with the compiler's C++ names.
    EXPECT_TRUE(std::any_of(names.begin(), names.end(), [](const std::string& n) {
        return n.find("9CDlgColor") != std::string::npos;
    }));
}

TEST_F(ModuleTest, ShowStateAndTitleFollowOpenShowHideAndClose) {
    EXPECT_EQ(PXColor_GetShow(), -1);
    TestHost host;
    ASSERT_TRUE(PXColor_Open(host.window(), kNotifyMessage));
    HWND dialog = RemoteControl();
    ASSERT_NE(dialog, nullptr);
    // First run without a settings file: hidden in the minimized state.
    EXPECT_FALSE(IsWindowVisible(dialog));
    EXPECT_EQ(PXColor_GetShow(), SW_SHOWMINIMIZED);

    PXColor_ShowWindow(SW_SHOWNORMAL);
    EXPECT_TRUE(IsWindowVisible(dialog));
    EXPECT_EQ(PXColor_GetShow(), SW_SHOWNORMAL);

    // A title replaces the caption; hosts pass text in the system code page,
    // Shift-JIS on Japanese systems.
    PXColor_SetTitle("\x83\x4A\x83\x89\x81\x5B 2");
    EXPECT_EQ(WindowText(dialog), L"カラー 2");

    PXColor_ShowWindow(SW_HIDE);
    EXPECT_FALSE(IsWindowVisible(dialog));

    PXColor_Close();
    EXPECT_EQ(PXColor_GetShow(), -1);
    EXPECT_FALSE(IsWindow(dialog));
    EXPECT_TRUE(RemoteControls().empty());
    PXColor_Close();  // a second close does nothing
    EXPECT_EQ(PXColor_GetShow(), -1);
}

TEST_F(ModuleTest, SecondOpenLeavesOneDialogThatNotifiesTheSecondHost) {
    TestHost first(kNotifyMessage), second(kNotifyMessage + 1);
    ASSERT_TRUE(PXColor_Open(first.window(), kNotifyMessage));
    ASSERT_TRUE(PXColor_Open(second.window(), kNotifyMessage + 1));
    ASSERT_EQ(RemoteControls().size(), 1u);
    Click(RemoteControl(), 1000);
    EXPECT_TRUE(first.received().empty());
    ASSERT_EQ(second.received().size(), 1u);
    EXPECT_EQ(second.received()[0].name, "gradation");
}

TEST_F(ModuleTest, FunctionsWithoutADialogLeaveTheHostsObjectsAlone) {
    KTMapping mapping;
    float x = 1.25f, y = -3.5f;
    PXColor_GetMapping(mapping, x, y);
    EXPECT_EQ(std::make_pair(x, y), std::make_pair(1.25f, -3.5f));
    EXPECT_EQ(mapping.image, nullptr);

    KTEffectGradation gradation;
    gradation.SetRepeat(4);
    PXColor_GetGradation(gradation);
    EXPECT_EQ(gradation.repeat, 4);
    PXColor_ShowWindow(SW_SHOW);
    PXColor_SetTitle("ignored");
    EXPECT_EQ(PXColor_GetShow(), -1);
}

}  // namespace
