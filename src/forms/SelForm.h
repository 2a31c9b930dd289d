// The file selection window.
#pragma once

#include "FormLayout.h"

namespace forms {

const FormLayout& selForm();

}  // namespace forms
