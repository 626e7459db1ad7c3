// A fixture for tests that load the DLL: the remote control open and shown
// for a recording host, and no settings file before or after.
#pragma once

#include <gtest/gtest.h>

#include "WinTestSupport.h"

class RemoteControlTest : public ::testing::Test {
  protected:
    void SetUp() override {
        RemoveSettings();
        Open();
    }
    void TearDown() override {
        PXColor_Close();
        RemoveSettings();
    }
    // Opens (again) and shows the remote control.
    void Open() {
        ASSERT_TRUE(PXColor_Open(host.window(), kNotifyMessage));
        PXColor_ShowWindow(SW_SHOWNORMAL);
        remote = RemoteControl();
        ASSERT_NE(remote, nullptr);
    }

    TestHost host;
    HWND remote = nullptr;
};
