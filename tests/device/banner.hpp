// A banner for the Messages app, created by the phone's library in dark mode with all of its optional views.
#pragma once

#include "tests/device/emulator/phone.hpp"
#include "tests/device/emulator/recorded_methods.hpp"

namespace device {

class Banner {
 public:
  explicit Banner(Phone& shownOn);

  void set(const std::string& setter, std::uint64_t value) { phone.runtime.send(view, setter, {value}); }
  // Adds it to a superview, which builds its views.
  void show();
  // The object in one of the view's instance variables.
  Address part(const std::string& variable) { return phone.variable(view, variable); }
  std::string textOf(const std::string& label) { return phone.text(storedValue(phone.runtime, part(label), "text")); }
  std::string badgePath() { return phone.text(storedValue(phone.runtime, part("_appDetailImage"), "image")); }

  Phone& phone;
  Address icon = 0;
  Address view = 0;
};

// A constraint's relation as text, such as "BrimLabel.top == UIImageView.top", and its constant.
struct Constraint {
  std::string relation;
  double constant;
};
std::vector<Constraint> activeConstraints(Phone& phone);
bool holds(const std::vector<Constraint>& constraints, const std::string& relation, double constant);

}  // namespace device
