// A file in the making, beside the one that it is to become.
#pragma once

#include <string>

namespace pactora::formats {

class ScratchFile {
 public:
  // Takes a name that is free, and takes away what killed programs left half made
  // beside the target; makes no file.
  explicit ScratchFile(std::string target);
  // Takes away the file, and a database's journal beside it, unless it was moved.
  ~ScratchFile();
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;

  const std::string& Path() const { return path_; }

  // Puts the file in the place of the target, at once and whole. Returns whether it
  // could.
  bool ReplaceTarget() const;
  // Puts the file under the target's name. Raises DoorError::BadInput when there is
  // one by now, NotCarriedOut when it can't be done.
  void BecomeTarget() const;

 private:
  std::string target_;
  std::string path_;
};

}  // namespace pactora::formats
