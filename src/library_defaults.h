// The library's defaults for the services it creates for itself: the stand-ins of services/.
//
// library_defaults.cpp installs them before main runs. Its object file is handed to every
// program that links the library (see src/CMakeLists.txt), so no program can lose it to the
// static linker. A host or a test may still replace any factory on its thread through
// factories().
#pragma once

namespace nvwm {

void installLibraryDefaults();

}  // namespace nvwm
