#include "simulator/foundation/dates.hpp"

#include "platform/ns_date.hpp"
#include "simulator/foundation/hook_function.hpp"
#include "simulator/foundation/main_queue.hpp"

namespace foundation {

namespace {

// The platform's reference date, the start of 2001, in seconds since 1970.
constexpr double referenceDate = 978307200;

double timeIntervalSinceReferenceDate(Class, SEL) { return unixTimeNow() - referenceDate; }

NSDate* date(Class self, SEL) {
  return objc::send<NSDate*, "dateWithTimeIntervalSinceReferenceDate:">(self, unixTimeNow() - referenceDate);
}

}  // namespace

void installDates() {
  Class metaclass = reinterpret_cast<Class>(objc_getMetaClass("NSDate"));
  MSHookMessageEx(metaclass, objc::selector<"date">(), objc::toImplementation(&date), nullptr);
  MSHookMessageEx(metaclass, objc::selector<"timeIntervalSinceReferenceDate">(),
                  objc::toImplementation(&timeIntervalSinceReferenceDate), nullptr);
}

}  // namespace foundation
