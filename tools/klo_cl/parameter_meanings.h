// One line on what each parameter does, for `klo_cl --help NAME`.
#pragma once

namespace klo_cl {

// The meaning of the parameter with this exact library name, or null.
const char* parameterMeaning(const char* name);

}  // namespace klo_cl
