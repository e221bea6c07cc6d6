#include "simulator/uikit/layout/layout_engine.hpp"

#include <cstdio>
#include <unordered_map>
#include <unordered_set>

#include "simulator/uikit/layout/layout_expression.hpp"
#include "simulator/uikit/views/view_hierarchy.hpp"

namespace uikit {

namespace {

using layout::Solver;

constexpr float huggingPriority = 250;
// The maximum number of times that views are measured and the constraints solved again. Heights depend on widths, but
// widths rarely depend on heights, so few rounds are usually sufficient. A tree that needs more rounds than this
// probably does not converge.
constexpr int maxMeasuringRounds = 4;

Solver::Relation solverRelation(NSLayoutRelation relation) {
  switch (relation) {
    case NSLayoutRelation::LessThanOrEqual:
      return Solver::Relation::LessOrEqual;
    case NSLayoutRelation::Equal:
      return Solver::Relation::Equal;
    case NSLayoutRelation::GreaterThanOrEqual:
      return Solver::Relation::GreaterOrEqual;
  }
  return Solver::Relation::Equal;
}

// A constraint in the form in which the solver requires it.
struct ConstraintRow {
  LayoutExpression expression;
  Solver::Relation relation;
  float priority;
  NSLayoutConstraint* source = nullptr;  // null if the row is a view's intrinsic size
  Solver::Constraint id = 0;

  bool differsOnlyInConstantFrom(const ConstraintRow& other) const {
    const auto sameTerm = [](const Solver::Term& left, const Solver::Term& right) {
      return left.variable == right.variable && left.coefficient == right.coefficient;
    };
    return relation == other.relation && priority == other.priority && source == other.source &&
           std::ranges::equal(expression.terms, other.expression.terms, sameTerm);
  }
};

bool hasWidthDependentHeight(const UIView* view) {
  return view->respondsToSelector(objc::selector<"_setPreferredWidth:">());
}

CGSize queryIntrinsicSize(UIView* view, double width) {
  IntrinsicSize& size = record(view).intrinsicSize;
  size.isBeingMeasured = true;
  if (hasWidthDependentHeight(view)) objc::send<void, "_setPreferredWidth:">(view, width);
  const CGSize intrinsic = objc::send<CGSize, "intrinsicContentSize">(view);
  size.isBeingMeasured = false;
  return intrinsic;
}

void refreshIntrinsicSize(UIView* view) {
  IntrinsicSize& size = record(view).intrinsicSize;
  if (size.isValid) return;
  size.natural = queryIntrinsicSize(view, 0);
  size.height = size.natural.height;
  size.measuredWidth = -1;
  size.isValid = true;
}

enum class Measured : bool { Same, Changed };

// Updates the view's intrinsic height for the width that the solver has found. Returns whether the height has changed.
Measured measureAtWidth(UIView* view, double width) {
  IntrinsicSize& size = record(view).intrinsicSize;
  if (size.measuredWidth == width || !hasWidthDependentHeight(view)) return Measured::Same;
  size.measuredWidth = width;
  const double height = queryIntrinsicSize(view, width).height;
  if (height == size.height) return Measured::Same;
  size.height = height;
  return Measured::Changed;
}

}  // namespace

struct LayoutEngine::Model final : FrameVariableSource {
  explicit Model(UIView* treeRoot) : root(treeRoot) {}

  UIView* const root;
  Solver solver;
  std::vector<UIView*> placedViews;  // parents first
  std::unordered_map<const UIView*, FrameVariables> variables;
  std::vector<ConstraintRow> rows;

  const FrameVariables* of(const UIView* view) const override {
    const auto found = variables.find(view);
    return found == variables.end() ? nullptr : &found->second;
  }

  void removeInnerEngines();
  std::vector<UIView*> collectPlacedViews() const;
  std::vector<ConstraintRow> collectRows() const;
  void addIntrinsicRows(UIView* view, std::vector<ConstraintRow>& collected) const;
  void rebuildVariables(std::vector<UIView*> views);
  void install(std::vector<ConstraintRow> collected);
  bool updateConstants(const std::vector<ConstraintRow>& collected);
  void reportConflicts() const;
};

// Removes the engines of descendants, because this engine solves their constraints now.
void LayoutEngine::Model::removeInnerEngines() {
  visitTree(root, [&](UIView* view) {
    if (view != root) record(view).engine.reset();
  });
}

// Returns the views whose frames are determined by constraints: those that do not translate their autoresizing mask and
// are part of a constraint. Omits the root, because its frame is given.
std::vector<UIView*> LayoutEngine::Model::collectPlacedViews() const {
  std::unordered_set<const UIView*> named;
  visitTree(root, [&](UIView* view) {
    for (const objc::Ref<NSLayoutConstraint>& constraint : record(view).constraints) {
      named.insert(objc::state(constraint.get()).firstView);
      named.insert(objc::state(constraint.get()).secondView);
    }
  });
  std::vector<UIView*> found;
  visitTree(root, [&](UIView* view) {
    if (view != root && !record(view).translatesAutoresizingMask && named.contains(view)) found.push_back(view);
  });
  return found;
}

std::vector<ConstraintRow> LayoutEngine::Model::collectRows() const {
  std::vector<ConstraintRow> collected;
  visitTree(root, [&](UIView* view) {
    for (const objc::Ref<NSLayoutConstraint>& constraint : record(view).constraints) {
      const ConstraintRecord& state = objc::state(constraint.get());
      ConstraintRow row = {expressionOf(state, *this), solverRelation(state.relation), state.priority,
                           constraint.get()};
      if (!row.expression.terms.empty()) collected.push_back(std::move(row));
    }
  });
  for (UIView* view : placedViews) addIntrinsicRows(view, collected);
  return collected;
}

void LayoutEngine::Model::addIntrinsicRows(UIView* view, std::vector<ConstraintRow>& collected) const {
  refreshIntrinsicSize(view);
  const IntrinsicSize& size = record(view).intrinsicSize;
  const FrameVariables& frame = variables.at(view);
  const auto addAxis = [&](Solver::Variable variable, double length, float resistance) {
    if (length < 0) return;
    collected.push_back({{{{variable, 1}}, -length}, Solver::Relation::LessOrEqual, huggingPriority});
    collected.push_back({{{{variable, 1}}, -length}, Solver::Relation::GreaterOrEqual, resistance});
  };
  addAxis(frame.width, size.natural.width, size.widthResistance);
  addAxis(frame.height, size.height, size.heightResistance);
}

// Creates the variables of the views, the size of a view before its position. If the constraints are ambiguous, the
// solver minimizes the variables in the order in which they are created.
void LayoutEngine::Model::rebuildVariables(std::vector<UIView*> views) {
  placedViews = std::move(views);
  solver.clear();
  rows.clear();
  variables.clear();
  for (const UIView* view : placedViews) {
    const Solver::Variable width = solver.addVariable();
    const Solver::Variable height = solver.addVariable();
    const Solver::Variable x = solver.addVariable();
    const Solver::Variable y = solver.addVariable();
    variables.emplace(view, FrameVariables{width, height, x, y});
    for (const Solver::Variable length : {width, height}) {
      const Solver::Term term = {length, 1};
      solver.add({&term, 1}, 0, Solver::Relation::GreaterOrEqual, Solver::required);
    }
  }
}

bool LayoutEngine::Model::updateConstants(const std::vector<ConstraintRow>& collected) {
  const auto isSameShape = [](const ConstraintRow& left, const ConstraintRow& right) {
    return left.differsOnlyInConstantFrom(right);
  };
  if (!std::ranges::equal(rows, collected, isSameShape)) return false;
  for (std::size_t index = 0; index < rows.size(); ++index) {
    double& constant = rows[index].expression.constant;
    const double changed = collected[index].expression.constant;
    if (constant == changed) continue;
    constant = changed;
    solver.setConstant(rows[index].id, changed);
  }
  return true;
}

void LayoutEngine::Model::install(std::vector<ConstraintRow> collected) {
  if (updateConstants(collected)) return;
  rebuildVariables(std::move(placedViews));
  rows = std::move(collected);
  for (ConstraintRow& row : rows)
    row.id = solver.add(row.expression.terms, row.expression.constant, row.relation, row.priority);
}

void LayoutEngine::Model::reportConflicts() const {
  for (const Solver::Constraint conflict : solver.conflicts()) {
    const auto row = std::ranges::find(rows, conflict, &ConstraintRow::id);
    if (row == rows.end() || row->source == nullptr) continue;
    ConstraintRecord& constraint = objc::state(row->source);
    if (constraint.conflictReported) continue;
    constraint.conflictReported = true;
    std::fprintf(stderr, "Unable to satisfy all required constraints at the same time; ignoring %s\n",
                 describeConstraint(constraint).c_str());
  }
}

LayoutEngine::LayoutEngine(UIView* root) : model_(std::make_unique<Model>(root)) {}
LayoutEngine::~LayoutEngine() = default;

void LayoutEngine::update() {
  isStale_ = false;
  model_->removeInnerEngines();
  std::vector<UIView*> placedViews = model_->collectPlacedViews();
  if (placedViews != model_->placedViews) model_->rebuildVariables(std::move(placedViews));
  for (int round = 0; round < maxMeasuringRounds; ++round) {
    model_->install(model_->collectRows());
    constraintsRead_ += model_->rows.size();
    model_->solver.solve();
    Measured heights = Measured::Same;
    for (UIView* view : model_->placedViews)
      if (measureAtWidth(view, frameOf(view).size.width) == Measured::Changed) heights = Measured::Changed;
    if (heights == Measured::Same) break;
  }
  model_->reportConflicts();
}

LayoutEngine::Work LayoutEngine::work() const { return {constraintsRead_, model_->solver.pivotCount()}; }

bool LayoutEngine::determinesFrameOf(const UIView* view) const { return model_->of(view) != nullptr; }

CGRect LayoutEngine::frameOf(const UIView* view) const {
  const FrameVariables& frame = *model_->of(view);
  const Solver& solver = model_->solver;
  return {{solver.value(frame.x), solver.value(frame.y)}, {solver.value(frame.width), solver.value(frame.height)}};
}

std::vector<UIView*> LayoutEngine::misplacedViews() const {
  std::vector<UIView*> misplaced;
  for (UIView* view : model_->placedViews)
    if (frameOf(view) != modelFrame(record(view).layer)) misplaced.push_back(view);
  return misplaced;
}

}  // namespace uikit
