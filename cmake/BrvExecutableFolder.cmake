# BRV_EXECUTABLE_FOLDER: the folder in a bundle's Contents for the executable of the system and the processor that are
# built for. One bundle can hold the executables of all of them. A processor without a name of its own here has the one
# by which its system calls it.
if(APPLE)
  set(BRV_EXECUTABLE_FOLDER MacOS)
elseif(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|amd64|AMD64)$")
  set(BRV_EXECUTABLE_FOLDER Linux-x86-64)
elseif(CMAKE_SYSTEM_PROCESSOR MATCHES "^(aarch64|arm64)$")
  set(BRV_EXECUTABLE_FOLDER Linux-arm64)
elseif(NOT CMAKE_SYSTEM_PROCESSOR)
  message(FATAL_ERROR "The processor is not known: a toolchain file has to set CMAKE_SYSTEM_PROCESSOR")
else()
  set(BRV_EXECUTABLE_FOLDER Linux-${CMAKE_SYSTEM_PROCESSOR})
endif()
