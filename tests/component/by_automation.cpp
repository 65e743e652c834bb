// Linked with the tests of a folder of the add-on: its host is reached by automation
// there, through the embedded host's automation server.
#include <windows.h>

#include <ole2.h>

#include "automation_host/Served.h"
#include "automation_host/serve_host.h"
#include "component/com/values.h"
#include "component/host/AutomationApp.h"
#include "support/contract_world.h"

namespace pactora::component {
namespace {

class Apartment : public testing::Environment {
  void SetUp() override {
    ASSERT_TRUE(SUCCEEDED(OleInitialize(nullptr)));
    support::app_for_the_add_on = [](support::AppRef app) -> support::AppRef {
      return std::make_shared<AutomationApp>(
          ObjectIn(Variant(automation_host::ServeApp(app)).Get()));
    };
  }
  void TearDown() override {
    EXPECT_GT(automation_host::traffic.invokes, 0u);
    EXPECT_EQ(automation_host::traffic.objects, 0u) << "objects of the host are held for ever";
    OleUninitialize();
  }
};
testing::Environment* const apartment = testing::AddGlobalTestEnvironment(new Apartment);

}  // namespace
}  // namespace pactora::component
