// Errors that the host raises on behalf of a script, to rehearse what then happens.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "automation/scripts/script.h"
#include "embedded/Host.h"

namespace pactora::scripts {

// Whether a script may use this name for an operation of the host layer.
bool IsOperation(std::string_view name);

class Faults final : public embedded::OperationProbe {
 public:
  // The host must outlive the object.
  explicit Faults(embedded::Host& host) : host_(host) { host_.SetProbe(this); }
  ~Faults() override { host_.SetProbe(nullptr); }
  Faults(const Faults&) = delete;
  Faults& operator=(const Faults&) = delete;

  // place is that of the step.
  void Add(const FaultStep& fault, const std::string& place);
  // Places of the faults that did not occur.
  std::vector<std::string> Unused() const;

  // While it lives, operations are the script's own: they do not fail and do not count.
  class Silence {
   public:
    explicit Silence(Faults& faults) : faults_(faults) { faults_.host_.SetProbe(nullptr); }
    ~Silence() { faults_.host_.SetProbe(&faults_); }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

   private:
    Faults& faults_;
  };

  void Before(std::string_view operation, std::string_view table) override;

 private:
  struct Armed {
    FaultStep fault;
    std::string place;
  };

  embedded::Host& host_;
  std::vector<Armed> armed_;
};

}  // namespace pactora::scripts
