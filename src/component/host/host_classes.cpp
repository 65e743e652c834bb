// The host's own classes that the component creates.
#include <iterator>
#include <utility>

#include "component/com/failures.h"
#include "component/host/AutomationApp.h"

namespace pactora::component {
namespace {

// The program ids of the classes, the likelier first.
constexpr const wchar_t* kErrorTexts[] = {L"TessarinData31.HostErrorTexts",
                                          L"TessarinDbServer31.HostErrorTexts"};
constexpr const wchar_t* kApplication = L"TessarinData31.HostApp";

HRESULT Create(const wchar_t* program_id, Ref<IDispatch>& object) {
  CLSID id{};
  const HRESULT code = CLSIDFromProgID(program_id, &id);
  if (FAILED(code)) return code;
  return CoCreateInstance(id, nullptr, CLSCTX_SERVER, __uuidof(IDispatch), object.PutVoid());
}

class ServerErrorTexts final : public host::HostErrorTexts {
 public:
  explicit ServerErrorTexts(LateBound object) : object_(std::move(object)) {}
  std::string Text(std::int32_t number) override {
    return host::ToText(ToValue(object_.Get(L"Text", number).Get()));
  }

 private:
  LateBound object_;
};

class SystemErrorTexts final : public host::HostErrorTexts {
 public:
  std::string Text(std::int32_t number) override { return SystemText(number); }
};

}  // namespace

std::shared_ptr<host::HostErrorTexts> CreateHostErrorTexts() {
  for (const wchar_t* program_id : kErrorTexts) {
    Ref<IDispatch> object;
    if (SUCCEEDED(Create(program_id, object)))
      return std::make_shared<ServerErrorTexts>(LateBound(std::move(object)));
  }
  return std::make_shared<SystemErrorTexts>();
}

std::shared_ptr<host::HostApp> GlobalHostApp() {
  Ref<IDispatch> object;
  Check(Create(kApplication, object));
  return std::make_shared<AutomationApp>(std::move(object));
}

}  // namespace pactora::component
