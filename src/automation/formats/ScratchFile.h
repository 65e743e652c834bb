// An unfinished file, beside the one that it is to become.
#pragma once

#include <string>

namespace pactora::formats {

class ScratchFile {
 public:
  // Chooses a free name, without making a file, and removes unfinished files that
  // killed programs left beside the target.
  explicit ScratchFile(std::string target);
  // Removes the file, and a database's journal beside it, unless it was moved.
  ~ScratchFile();
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;

  const std::string& Path() const { return path_; }

  // Replaces the target with the file in one step. Returns whether that succeeded.
  bool ReplaceTarget() const;
  // Gives the file the target's name. Raises DoorError::BadInput when there is a file
  // of that name by now, NotCarriedOut when it can't be done.
  void BecomeTarget() const;

 private:
  std::string target_;
  std::string path_;
};

}  // namespace pactora::formats
