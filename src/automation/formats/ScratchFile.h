// An unfinished file, beside the one that it is to become.
#pragma once

#include <string>

namespace pactora::formats {

class ScratchFile {
 public:
  // Makes an empty file that nobody else has made, under a name that nobody can guess, and
  // removes unfinished files that killed programs left beside the target. Raises
  // DoorError::NotCarriedOut when none can be made there.
  explicit ScratchFile(std::string target);
  // Removes the file, and a database's journal beside it, unless it was moved.
  ~ScratchFile();
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;

  const std::string& Path() const { return path_; }

  // Replaces the target with the file in one step, safe from a power cut. Returns whether
  // that succeeded.
  bool ReplaceTarget() const;
  // Gives the file the target's name, safe from a power cut. Raises DoorError::BadInput when
  // there is a file of that name by now, NotCarriedOut when it can't be done.
  void BecomeTarget() const;

 private:
  std::string target_;
  std::string path_;
};

}  // namespace pactora::formats
