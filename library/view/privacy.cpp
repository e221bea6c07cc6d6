#include "library/view/privacy.hpp"

#include "library/utilities/asset_bundle.hpp"

void replaceTextsWithPlaceholder(BrimContainerState& state) {
  state.header = objc::retain(localizedText(state.assets, "CONTENT_HIDDEN"_ns, "Content hidden"_ns));
  state.body = objc::retain(""_ns);
  state.subHeader = nullptr;
}

void showContent(BrimContainer* self) {
  const BrimContainerState& state = objc::state(self);
  state.subHeaderLabel->setText(state.subHeader);
  if (state.tinyBanner) {
    self->updateForContinuousNotification(state.originalHeader);
    return;
  }
  state.headerLabel->setText(state.originalHeader);
  state.bodyLabel->setText(state.originalBody);
}
