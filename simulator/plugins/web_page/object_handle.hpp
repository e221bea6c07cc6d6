// Owns a reference to an object of GLib's type system.
#pragma once

#include <glib-object.h>

#include <memory>

namespace web_page {

struct ObjectDeleter {
  void operator()(void* object) const { g_object_unref(object); }
};

template <class Object>
using ObjectHandle = std::unique_ptr<Object, ObjectDeleter>;

}  // namespace web_page
