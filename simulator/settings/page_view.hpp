// The view of a page of the Settings application: a bar with the title and the list of the controls. A row with a list
// of values opens a second level with these values and a back button. Main thread.
#pragma once

#include "simulator/settings/table_view.hpp"

class PSBackButton;

struct PageLevel {
  objc::Ref<UILabel> title;
  objc::Ref<PSTableView> table;
};
struct PageViewState {
  PageViewState() = default;
  ~PageViewState();
  PageViewState(const PageViewState&) = delete;
  PageViewState& operator=(const PageViewState&) = delete;

  objc::Ref<UIView> bar;
  objc::Ref<UIView> barEdge;
  objc::Ref<PSBackButton> back;
  std::vector<PageLevel> levels;  // the page and, while it is open, a list of values
  std::vector<std::string> domains;
};
class PSPageView : public objc::Interface<"PSPageView", UIView> {};
template <>
struct objc::StateOf<PSPageView> {
  using Type = PageViewState;
};

namespace settings_application {

// Creates the view of the page. It is updated when any process changes the preferences. The controller must exist as
// long as the user can touch the view.
objc::Ref<PSPageView> makePageView(PSListController* controller, NSString* title);

void definePageView();

}  // namespace settings_application
