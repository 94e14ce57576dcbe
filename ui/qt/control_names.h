#pragma once

#include <QString>

#include "form/layout.h"

namespace quorlin::qt {

// What a screen reader calls a control: its caption, or its role where it has none.
QString accessibleNameOf(const ControlLayout& layout);

}  // namespace quorlin::qt
