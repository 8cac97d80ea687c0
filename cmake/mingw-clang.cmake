# Reads the code like cmake/mingw.cmake, but with clang, which has to be told where Debian keeps the
# cross-compiler's standard library.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_CXX_FLAGS_INIT --target=x86_64-w64-mingw32)
set(standard_library /usr/lib/gcc/x86_64-w64-mingw32/12-posix/include/c++)
set(CMAKE_CXX_STANDARD_INCLUDE_DIRECTORIES ${standard_library} ${standard_library}/x86_64-w64-mingw32)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
# Nothing is linked, not even to try the compiler out.
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
