#include "simulator/springboard/list/unfolded_header.hpp"

#include "platform/ui_visual_effect_view.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/springboard/platter/platter_style.hpp"
#include "simulator/springboard/services/applications.hpp"
#include "simulator/uikit/views/view.hpp"

namespace springboard {

namespace {

using Header = UnfoldedHeader;

constexpr CGFloat padding = 6;
constexpr CGFloat nameFontSize = 20;
constexpr CGFloat buttonFontSize = 13;
constexpr CGFloat buttonHeight = 28;
constexpr CGFloat buttonPadding = 14;

UILabel* titleOf(const Header* self) {
  return static_cast<UILabel*>(objc::state(self).button->subviews()->objectAtIndex(1));
}

void traitCollectionDidChange(Header* self, UITraitCollection* previous) {
  objc::sendSuper<"NCNotificationListSectionHeaderView", void, "traitCollectionDidChange:">(self, previous);
  titleOf(self)->setTextColor(textColor(self));
}

objc::Ref<UIView> makeButton() {
  auto button = UIView::withFrame<UIView>({});
  auto label = UIView::withFrame<UILabel>({});
  label->setFont(UIFont::systemFontOfSize(buttonFontSize));
  label->setTextAlignment(NSTextAlignment::Center);
  label->setText("Show less"_ns);
  const CGSize text = objc::send<CGSize, "sizeThatFits:">(label.get(), CGSize{200, buttonHeight});
  const CGRect bounds = {{}, {text.width + 2 * buttonPadding, buttonHeight}};
  auto background = UIVisualEffectView::withEffect(UIBlurEffect::withStyle(UIBlurEffectStyle::Regular));
  background->setFrame(bounds);
  label->setFrame(bounds);
  button->setFrame(bounds);
  button->layer()->setCornerRadius(buttonHeight / 2);
  button->setClipsToBounds(true);
  button->addSubview(background);
  button->addSubview(label);
  return button;
}

}  // namespace

objc::Ref<Header> makeUnfoldedHeader(const std::string& section, const std::string& thread, CGFloat width) {
  auto header = UIView::withFrame<Header>({{}, {width, unfoldedHeaderHeight}});
  UnfoldedHeaderState& parts = objc::state(header.get());
  parts.section = section;
  parts.thread = thread;
  parts.button = makeButton();
  const CGSize button = parts.button->bounds().size;
  parts.button->setFrame(
      uikit::mirroredIfNeeded(header, {{width - button.width, (unfoldedHeaderHeight - button.height) / 2}, button}));
  parts.name = UIView::withFrame<UILabel>(
      uikit::mirroredIfNeeded(header, {{padding, 0}, {width - button.width - 2 * padding, unfoldedHeaderHeight}}));
  parts.name->setFont(UIFont::boldSystemFontOfSize(nameFontSize));
  parts.name->setTextColor(UIColor::withRed(1, 1, 1, 1));
  parts.name->setText(base::stringOf(nameOf(section)));
  header->addSubview(parts.name);
  header->addSubview(parts.button);
  titleOf(header)->setTextColor(textColor(header));
  return header;
}

void defineUnfoldedHeader() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"traitCollectionDidChange:", &traitCollectionDidChange>(),
  };
  objc::defineClassWithState<Header>(methods);
}

}  // namespace springboard
