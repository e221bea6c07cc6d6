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
constexpr float compressionResistancePriority = 750;
// Widths decide heights, and heights seldom widths; more rounds than this would be a tree that never settles.
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

// A constraint as the solver has it.
struct Row {
  LayoutExpression expression;
  Solver::Relation relation;
  float priority;
  NSLayoutConstraint* source = nullptr;  // null for a view's intrinsic size
  Solver::Constraint id = 0;

  bool hasShapeOf(const Row& other) const {
    const auto sameTerm = [](const Solver::Term& left, const Solver::Term& right) {
      return left.variable == right.variable && left.coefficient == right.coefficient;
    };
    return relation == other.relation && priority == other.priority && source == other.source &&
           std::ranges::equal(expression.terms, other.expression.terms, sameTerm);
  }
};

bool measuresByWidth(const UIView* view) { return view->respondsToSelector(objc::selector<"_setPreferredWidth:">()); }

CGSize askIntrinsicSize(UIView* view, double width) {
  IntrinsicSize& size = record(view).intrinsicSize;
  size.isBeingMeasured = true;
  if (measuresByWidth(view)) objc::send<void, "_setPreferredWidth:">(view, width);
  const CGSize answer = objc::send<CGSize, "intrinsicContentSize">(view);
  size.isBeingMeasured = false;
  return answer;
}

void refreshIntrinsicSize(UIView* view) {
  IntrinsicSize& size = record(view).intrinsicSize;
  if (size.isValid) return;
  size.natural = askIntrinsicSize(view, 0);
  size.height = size.natural.height;
  size.measuredWidth = -1;
  size.isValid = true;
}

enum class Measured : bool { Same, Changed };

// The view's height at the width that was found for it.
Measured measureAtWidth(UIView* view, double width) {
  IntrinsicSize& size = record(view).intrinsicSize;
  if (size.measuredWidth == width || !measuresByWidth(view)) return Measured::Same;
  size.measuredWidth = width;
  const double height = askIntrinsicSize(view, width).height;
  if (height == size.height) return Measured::Same;
  size.height = height;
  return Measured::Changed;
}

}  // namespace

struct LayoutEngine::Model final : FrameUnknowns {
  explicit Model(UIView* treeRoot) : root(treeRoot) {}

  UIView* const root;
  Solver solver;
  std::vector<UIView*> placed;  // parents first
  std::unordered_map<const UIView*, FrameVariables> variables;
  std::vector<Row> rows;

  const FrameVariables* of(const UIView* view) const override {
    const auto found = variables.find(view);
    return found == variables.end() ? nullptr : &found->second;
  }

  void claim();
  std::vector<UIView*> collectPlaced() const;
  std::vector<Row> collectRows() const;
  void addIntrinsicRows(UIView* view, std::vector<Row>& collected) const;
  void place(std::vector<UIView*> views);
  void install(std::vector<Row> collected);
  bool takesConstantsOf(const std::vector<Row>& collected);
  void reportConflicts() const;
};

// Constraints that once began further inside belong to this engine now.
void LayoutEngine::Model::claim() {
  visitTree(root, [&](UIView* view) {
    if (view != root) record(view).engine.reset();
  });
}

// A view is placed by constraints when it does not translate its autoresizing mask and a constraint names it. The
// root's frame is given.
std::vector<UIView*> LayoutEngine::Model::collectPlaced() const {
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

std::vector<Row> LayoutEngine::Model::collectRows() const {
  std::vector<Row> collected;
  visitTree(root, [&](UIView* view) {
    for (const objc::Ref<NSLayoutConstraint>& constraint : record(view).constraints) {
      const ConstraintRecord& state = objc::state(constraint.get());
      Row row = {expressionOf(state, *this), solverRelation(state.relation), state.priority, constraint.get()};
      if (!row.expression.terms.empty()) collected.push_back(std::move(row));
    }
  });
  for (UIView* view : placed) addIntrinsicRows(view, collected);
  return collected;
}

void LayoutEngine::Model::addIntrinsicRows(UIView* view, std::vector<Row>& collected) const {
  refreshIntrinsicSize(view);
  const IntrinsicSize& size = record(view).intrinsicSize;
  const FrameVariables& frame = variables.at(view);
  const auto addAxis = [&](Solver::Variable variable, double length) {
    if (length < 0) return;
    collected.push_back({{{{variable, 1}}, -length}, Solver::Relation::LessOrEqual, huggingPriority});
    collected.push_back({{{{variable, 1}}, -length}, Solver::Relation::GreaterOrEqual, compressionResistancePriority});
  };
  addAxis(frame.width, size.natural.width);
  addAxis(frame.height, size.height);
}

// The order decides what becomes small where constraints leave a choice: a view's size before its place.
void LayoutEngine::Model::place(std::vector<UIView*> views) {
  placed = std::move(views);
  solver.clear();
  rows.clear();
  variables.clear();
  for (const UIView* view : placed) {
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

bool LayoutEngine::Model::takesConstantsOf(const std::vector<Row>& collected) {
  const auto sameShape = [](const Row& left, const Row& right) { return left.hasShapeOf(right); };
  if (!std::ranges::equal(rows, collected, sameShape)) return false;
  for (std::size_t index = 0; index < rows.size(); ++index) {
    double& constant = rows[index].expression.constant;
    const double changed = collected[index].expression.constant;
    if (constant == changed) continue;
    constant = changed;
    solver.setConstant(rows[index].id, changed);
  }
  return true;
}

void LayoutEngine::Model::install(std::vector<Row> collected) {
  if (takesConstantsOf(collected)) return;
  place(std::move(placed));
  rows = std::move(collected);
  for (Row& row : rows) row.id = solver.add(row.expression.terms, row.expression.constant, row.relation, row.priority);
}

void LayoutEngine::Model::reportConflicts() const {
  for (const Solver::Constraint conflict : solver.conflicts()) {
    const auto row = std::ranges::find(rows, conflict, &Row::id);
    if (row == rows.end() || row->source == nullptr) continue;
    ConstraintRecord& constraint = objc::state(row->source);
    if (constraint.conflictReported) continue;
    constraint.conflictReported = true;
    std::fprintf(stderr, "Unable to satisfy all required constraints at once; left out: %s\n",
                 describeConstraint(constraint).c_str());
  }
}

LayoutEngine::LayoutEngine(UIView* root) : model_(std::make_unique<Model>(root)) {}
LayoutEngine::~LayoutEngine() = default;

void LayoutEngine::update() {
  isStale_ = false;
  model_->claim();
  std::vector<UIView*> placed = model_->collectPlaced();
  if (placed != model_->placed) model_->place(std::move(placed));
  for (int round = 0; round < maxMeasuringRounds; ++round) {
    model_->install(model_->collectRows());
    constraintsRead_ += model_->rows.size();
    model_->solver.solve();
    Measured heights = Measured::Same;
    for (UIView* view : model_->placed)
      if (measureAtWidth(view, frameOf(view).size.width) == Measured::Changed) heights = Measured::Changed;
    if (heights == Measured::Same) break;
  }
  model_->reportConflicts();
}

LayoutEngine::Work LayoutEngine::work() const { return {constraintsRead_, model_->solver.pivotCount()}; }

bool LayoutEngine::places(const UIView* view) const { return model_->of(view) != nullptr; }

CGRect LayoutEngine::frameOf(const UIView* view) const {
  const FrameVariables& frame = *model_->of(view);
  const Solver& solver = model_->solver;
  return {{solver.value(frame.x), solver.value(frame.y)}, {solver.value(frame.width), solver.value(frame.height)}};
}

std::vector<UIView*> LayoutEngine::misplacedViews() const {
  std::vector<UIView*> misplaced;
  for (UIView* view : model_->placed)
    if (frameOf(view) != modelFrame(record(view).layer)) misplaced.push_back(view);
  return misplaced;
}

}  // namespace uikit
