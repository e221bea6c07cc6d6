#include "simulator/springboard/long_look/action_group_view.hpp"

#include "simulator/springboard/long_look/action_row.hpp"
#include "simulator/springboard/platter/platter_style.hpp"

namespace springboard {

namespace {

using Group = UIInterfaceActionGroupView;

UIView* rowAt(const Group* group, NSUInteger index) {
  return static_cast<UIView*>(group->subviews()->objectAtIndex(index));
}

void addRow(Group* group, NCNotificationAction* action, NSObject* target) {
  const auto row = makeActionRow(action, group->subviews()->count() == 0 ? RowPosition::First : RowPosition::Following);
  row->addTarget(target, objc::selector<"_actionRowTapped:">(), UIControlEvents::TouchUpInside);
  group->addSubview(row);
}

void layoutSubviews(Group* self) {
  objc::sendSuper<"UIInterfaceActionGroupView", void, "layoutSubviews">(self);
  const CGFloat width = self->bounds().size.width;
  for (NSUInteger index = 0; index < self->subviews()->count(); ++index)
    rowAt(self, index)->setFrame({{0, static_cast<CGFloat>(index) * actionRowHeight}, {width, actionRowHeight}});
}

}  // namespace

objc::Ref<Group> makeActionGroup(const NCNotificationRequest* request, NSObject* target) {
  auto group = UIView::withFrame<Group>({});
  applyCardShape(group);
  const NSDictionary* actions = request->supplementaryActions();
  const NSArray* keys = actions->allKeys();
  for (NSUInteger key = 0; key < keys->count(); ++key) {
    const auto* actionsOfKey = objc::as<NSArray>(actions->objectForKey(keys->objectAtIndex(key)));
    for (NSUInteger index = 0; index < actionsOfKey->count(); ++index)
      addRow(group, static_cast<NCNotificationAction*>(actionsOfKey->objectAtIndex(index)), target);
  }
  return group;
}

void removeRowsBeyond(const Group* view, CGFloat height) {
  while (view->subviews()->count() != 0 && heightOfActionGroup(view) > height)
    rowAt(view, view->subviews()->count() - 1)->removeFromSuperview();
}

CGFloat heightOfActionGroup(const Group* view) {
  return static_cast<CGFloat>(view->subviews()->count()) * actionRowHeight;
}

void defineActionGroupView() {
  static constexpr objc::MethodEntry methods[] = {objc::method<"layoutSubviews", &layoutSubviews>()};
  objc::defineClass<Group>(methods);
}

}  // namespace springboard
