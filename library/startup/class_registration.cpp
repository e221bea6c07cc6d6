#include "library/startup/class_registration.hpp"

#include "library/applications/supported_applications.hpp"
#include "library/photos/folder_finder.hpp"
#include "library/utilities/ns_string_md5.hpp"
#include "library/utilities/parent_view_controller.hpp"
#include "library/utilities/type_check_helper.hpp"
#include "library/view/brim_colors.hpp"
#include "library/view/brim_container.hpp"

void registerClasses() {
  registerStringUtilities();
  registerViewUtilities();
  registerTypeCheckHelper();
  registerBrimColors();
  registerBannerClasses();
  registerFolderFinder();
  registerPhotoProviders();
}
