// BrimLabel is the class of a banner's texts, and BrimTextField is the class of its reply field. Main thread.
#pragma once

#include "platform/ui_label.hpp"
#include "platform/ui_text_field.hpp"

class BrimLabel : public objc::Interface<"BrimLabel", UILabel> {};
class BrimTextField : public objc::Interface<"BrimTextField", UITextField> {};
