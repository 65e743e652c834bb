// The document that a row of the embedded host can carry: a name, and no more.
#pragma once

#include <string>

#include "host/Value.h"

namespace pactora::store {

class NamedDocument final : public host::Document {
 public:
  explicit NamedDocument(std::string name) : name_(std::move(name)) {}
  const std::string& Name() const { return name_; }

 private:
  std::string name_;
};

}  // namespace pactora::store
