#include "platform/ServiceHost.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "base/Registry.h"
#include "base/SettingsStore.h"
#include "service/ServiceProtocol.h"
#include "service/ServiceRegistration.h"

namespace {

using service_host::DeregisterService;
using service_host::GetServiceHandle;
using service_host::RegisterService;
using service_host::ServiceIoControl;

/// Leaves no service registered under "OPS0:".
void DropService() {
    HANDLE running = GetServiceHandle(L"OPS0:", nullptr, nullptr);
    if (running != INVALID_HANDLE_VALUE)
        DeregisterService(running);
}

class ServiceHostTest : public ::testing::Test {
  protected:
    void SetUp() override { DropService(); }
    void TearDown() override { DropService(); }
};

TEST_F(ServiceHostTest, RegistersLooksUpAndCallsTheServiceLibrary) {
    EXPECT_EQ(GetServiceHandle(L"OPS0:", nullptr, nullptr), INVALID_HANDLE_VALUE);
    HANDLE service = RegisterService(L"OPS", 0, L"OrvalisPimServ.dll", 0);
    ASSERT_NE(service, nullptr);
    wchar_t dll[64] = {};
    DWORD size = 64;
    EXPECT_EQ(GetServiceHandle(L"OPS0:", dll, &size), service);
    EXPECT_STREQ(dll, L"OrvalisPimServ.dll");
    EXPECT_EQ(GetServiceHandle(L"ops0:", nullptr, nullptr), service);
    EXPECT_EQ(GetServiceHandle(L"OPS1:", nullptr, nullptr), INVALID_HANDLE_VALUE);

    // The empty text: the service answers with a search reply, reporting its size first.
    DWORD returned = 0;
    EXPECT_FALSE(ServiceIoControl(service, search_protocol::kSearchText, nullptr, 0, nullptr, 0,
                                  &returned, nullptr));
    ASSERT_GE(returned, 6u);
    std::vector<BYTE> reply(returned);
    DWORD needed = returned;
    EXPECT_TRUE(ServiceIoControl(service, search_protocol::kSearchText, nullptr, 0, reply.data(),
                                 needed, &returned, nullptr));
    EXPECT_EQ(returned, needed);
}

TEST_F(ServiceHostTest, SecondRegistrationOfTheSameNameFails) {
    HANDLE service = RegisterService(L"OPS", 0, L"OrvalisPimServ.dll", 0);
    ASSERT_NE(service, nullptr);
    EXPECT_EQ(RegisterService(L"OPS", 0, L"OrvalisPimServ.dll", 0), nullptr);
}

TEST_F(ServiceHostTest, MissingLibraryOrEntryPointsFail) {
    EXPECT_EQ(RegisterService(L"OPS", 0, L"NoSuchService.dll", 0), nullptr);
    EXPECT_EQ(RegisterService(L"XYZ", 0, L"OrvalisPimServ.dll", 0), nullptr);
    EXPECT_EQ(RegisterService(L"OPSX", 0, L"OrvalisPimServ.dll", 0), nullptr);
    EXPECT_EQ(GetServiceHandle(L"OPS0:", nullptr, nullptr), INVALID_HANDLE_VALUE);
}

TEST_F(ServiceHostTest, HostileRequestsFailWithoutHarm) {
    HANDLE service = RegisterService(L"OPS", 0, L"OrvalisPimServ.dll", 0);
    ASSERT_NE(service, nullptr);
    BYTE in[8] = {'3', 0, '7', 0};
    BYTE out[64];
    DWORD returned = 77;
    EXPECT_FALSE(ServiceIoControl(service, 12345, in, 4, out, 64, &returned, nullptr));
    EXPECT_EQ(returned, 0u);
    EXPECT_FALSE(ServiceIoControl(service, search_protocol::kSearchText, in, 3, out, 64, &returned,
                                  nullptr));
    EXPECT_FALSE(ServiceIoControl(service, search_protocol::kSearchText, in, 0xFFFFFFFE, out, 64,
                                  &returned, nullptr));
    EXPECT_FALSE(ServiceIoControl(service, search_protocol::kDetails, in, 4, out, 64, &returned,
                                  nullptr));  // no contact has that id
    EXPECT_FALSE(ServiceIoControl(service, search_protocol::kDetails, nullptr, 4, out, 64,
                                  &returned, nullptr));
    EXPECT_FALSE(ServiceIoControl(reinterpret_cast<HANDLE>(0x1234), search_protocol::kSearchText,
                                  in, 4, out, 64, &returned, nullptr));
}

TEST(ServiceRegistrationTest, MyRegServiceRecordsTheRegistrationAndReturnsNonZero) {
    HMODULE module = LoadLibraryW(L"OrvalisPimServ.dll");
    ASSERT_NE(module, nullptr);
    using Export = BOOL(WINAPI*)();
    auto reg =
        reinterpret_cast<Export>(reinterpret_cast<void*>(GetProcAddress(module, "MyRegService")));
    ASSERT_NE(reg, nullptr);
    EXPECT_NE(reg(), FALSE);
    FreeLibrary(module);
    registry::KeyHolder key(settings::OpenKey(service_registration::kKey, false));
    ASSERT_TRUE(key);
    char16_t dll[64] = {};
    uint32_t size = sizeof dll;
    uint32_t type = 0;
    ASSERT_TRUE(registry::Query(key.get(), u"Dll", &type, dll, &size));
    EXPECT_EQ(type, registry::kTypeString);
    EXPECT_EQ(std::u16string(dll), u"OrvalisPimServ.dll");
    uint32_t index = 9;
    size = 4;
    ASSERT_TRUE(registry::Query(key.get(), u"Index", &type, &index, &size));
    EXPECT_EQ(index, 0u);
}

}  // namespace
