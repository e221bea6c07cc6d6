// Layout anchors of views, and the constraints that they create.
#include "simulator/uikit/layout/layout_constraint.hpp"
#include "simulator/uikit/views/class_definitions.hpp"

namespace uikit {

namespace {

struct Factors {
  double multiplier = 1;
  double constant = 0;
};

NSLayoutConstraint* makeConstraint(const LayoutItem& first, NSLayoutRelation relation, const LayoutItem& second,
                                   const Factors& factors) {
  auto constraint = objc::make<NSLayoutConstraint>();
  ConstraintRecord& state = objc::state(constraint.get());
  state.first = first;
  state.second = second;
  state.relation = relation;
  state.multiplier = factors.multiplier;
  state.constant = factors.constant;
  return objc::autorelease(std::move(constraint));
}

template <NSLayoutRelation relation>
NSLayoutConstraint* toAnchor(NSLayoutAnchor* self, NSLayoutAnchor* other) {
  return makeConstraint(objc::state(self), relation, objc::state(other), {});
}

template <NSLayoutRelation relation>
NSLayoutConstraint* toAnchorWithConstant(NSLayoutAnchor* self, NSLayoutAnchor* other, CGFloat constant) {
  return makeConstraint(objc::state(self), relation, objc::state(other), {1, constant});
}

template <NSLayoutRelation relation>
NSLayoutConstraint* toConstant(NSLayoutDimension* self, CGFloat constant) {
  return makeConstraint(objc::state<NSLayoutAnchor>(self), relation, {}, {1, constant});
}

template <NSLayoutRelation relation>
NSLayoutConstraint* toMultiple(NSLayoutDimension* self, NSLayoutDimension* other, CGFloat multiplier) {
  return makeConstraint(objc::state<NSLayoutAnchor>(self), relation, objc::state<NSLayoutAnchor>(other),
                        {multiplier, 0});
}

template <NSLayoutRelation relation>
NSLayoutConstraint* toMultipleWithConstant(NSLayoutDimension* self, NSLayoutDimension* other, CGFloat multiplier,
                                           CGFloat constant) {
  return makeConstraint(objc::state<NSLayoutAnchor>(self), relation, objc::state<NSLayoutAnchor>(other),
                        {multiplier, constant});
}

Class anchorClassOf(NSLayoutAttribute attribute) {
  switch (attribute) {
    case NSLayoutAttribute::Width:
    case NSLayoutAttribute::Height:
      return NSLayoutDimension::classObject();
    case NSLayoutAttribute::Top:
    case NSLayoutAttribute::Bottom:
    case NSLayoutAttribute::CenterY:
    case NSLayoutAttribute::FirstBaseline:
      return NSLayoutYAxisAnchor::classObject();
    default:
      return NSLayoutXAxisAnchor::classObject();
  }
}

}  // namespace

NSLayoutAnchor* makeAnchor(UIView* view, NSLayoutAttribute attribute) {
  auto anchor = objc::adopt(
      objc::send<NSLayoutAnchor*, "init">(objc::send<id, "alloc">(reinterpret_cast<void*>(anchorClassOf(attribute)))));
  LayoutItem& item = objc::state(anchor.get());
  item.view = view;
  item.attribute = attribute;
  return objc::autorelease(std::move(anchor));
}

void defineLayoutAnchors() {
  using enum NSLayoutRelation;
  static constexpr objc::MethodEntry anchorMethods[] = {
      objc::method<"constraintEqualToAnchor:", &toAnchor<Equal>>(),
      objc::method<"constraintGreaterThanOrEqualToAnchor:", &toAnchor<GreaterThanOrEqual>>(),
      objc::method<"constraintLessThanOrEqualToAnchor:", &toAnchor<LessThanOrEqual>>(),
      objc::method<"constraintEqualToAnchor:constant:", &toAnchorWithConstant<Equal>>(),
      objc::method<"constraintGreaterThanOrEqualToAnchor:constant:", &toAnchorWithConstant<GreaterThanOrEqual>>(),
      objc::method<"constraintLessThanOrEqualToAnchor:constant:", &toAnchorWithConstant<LessThanOrEqual>>(),
  };
  static constexpr objc::MethodEntry dimensionMethods[] = {
      objc::method<"constraintEqualToConstant:", &toConstant<Equal>>(),
      objc::method<"constraintGreaterThanOrEqualToConstant:", &toConstant<GreaterThanOrEqual>>(),
      objc::method<"constraintLessThanOrEqualToConstant:", &toConstant<LessThanOrEqual>>(),
      objc::method<"constraintEqualToAnchor:multiplier:", &toMultiple<Equal>>(),
      objc::method<"constraintGreaterThanOrEqualToAnchor:multiplier:", &toMultiple<GreaterThanOrEqual>>(),
      objc::method<"constraintLessThanOrEqualToAnchor:multiplier:", &toMultiple<LessThanOrEqual>>(),
      objc::method<"constraintEqualToAnchor:multiplier:constant:", &toMultipleWithConstant<Equal>>(),
  };
  objc::defineClassWithState<NSLayoutAnchor>(anchorMethods);
  objc::defineClass<NSLayoutXAxisAnchor>({});
  objc::defineClass<NSLayoutYAxisAnchor>({});
  objc::defineClass<NSLayoutDimension>(dimensionMethods);
}

}  // namespace uikit
