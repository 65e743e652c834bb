// A stretch in which the program fills boxes and their handlers keep still.
#pragma once

namespace pactora::definitions {

class LoadingScope {
 public:
  explicit LoadingScope(bool& loading) : loading_(loading) { loading_ = true; }
  ~LoadingScope() { loading_ = false; }
  LoadingScope(const LoadingScope&) = delete;
  LoadingScope& operator=(const LoadingScope&) = delete;

 private:
  bool& loading_;
};

}  // namespace pactora::definitions
