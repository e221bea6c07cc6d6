#include "library/startup/classes.hpp"

#include "library/photos/folder_finder.hpp"
#include "library/photos/provider.hpp"
#include "library/startup/utilities/ns_string_md5.hpp"
#include "library/startup/utilities/type_check_helper.hpp"
#include "library/startup/utilities/ui_view_plon.hpp"
#include "library/view/brim_colors.hpp"
#include "library/view/brim_container.hpp"
#include "library/view/brim_label.hpp"

void registerClasses() {
  registerStringUtilities();
  registerViewUtilities();
  registerTypeCheckHelper();
  registerBrimColors();
  registerTextClasses();
  registerBrimContainer();
  registerFolderFinder();
  registerWhatsAppProvider();
  registerMessagesProvider();
  registerTwitterProvider();
  registerSlackProvider();
  registerDiscordProvider();
  registerInstagramProvider();
  registerMessengerProvider();
  registerTelegramProvider();
}
