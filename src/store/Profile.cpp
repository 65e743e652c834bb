#include "store/Profile.h"

namespace pactora::store {

Profile DefaultProfile(const std::string& name) {
  Profile profile;
  profile.name = name;
  profile.display_name = name;
  profile.current_user = "Benutzer";
  profile.users = {profile.current_user};
  return profile;
}

}  // namespace pactora::store
