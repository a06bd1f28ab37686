# One library per room of the house. Sources are found by place, so that a new page or dialog is a
# new file and nothing else.

add_library(kelvro_options INTERFACE)
target_include_directories(kelvro_options INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_options(
  kelvro_options
  INTERFACE -Wall
            -Wextra
            -Wconversion
            -Wshadow
            -Wpedantic
            # Fused multiply-adds round differently: results are to be the same on every machine.
            -ffp-contract=off
            # GCC 12 takes copies inside std::string for overlapping ones (GCC bug 105651).
            $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
            $<$<BOOL:${KELVRO_WERROR}>:-Werror>
            $<$<BOOL:${KELVRO_SANITIZE}>:-fsanitize=address,undefined>
            $<$<BOOL:${KELVRO_SANITIZE}>:-fno-sanitize-recover=undefined>
            $<$<BOOL:${KELVRO_SANITIZE}>:-fno-omit-frame-pointer>
            # A number that does not fit its type is told and ends nothing: a finding of fuzzers only.
            $<$<BOOL:${KELVRO_FUZZ}>:-fsanitize=float-cast-overflow>
            $<$<BOOL:${KELVRO_FUZZ}>:-fsanitize-recover=float-cast-overflow>)
if(KELVRO_HARDEN)
  # Executables that load anywhere; -fPIC, for libraries, would keep functions from being inlined.
  target_compile_options(kelvro_options INTERFACE -fPIE -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2
                                                  -fstack-protector-strong)
  target_link_options(kelvro_options INTERFACE -pie LINKER:-z,relro LINKER:-z,now)
endif()
target_compile_definitions(kelvro_options INTERFACE KELVRO_VERSION="${PROJECT_VERSION}")
target_link_options(kelvro_options INTERFACE
                    $<$<BOOL:${KELVRO_SANITIZE}>:-fsanitize=address,undefined>)

set(kelvro_std_headers <algorithm> <array> <complex> <functional> <map> <optional> <span> <string>
                       <variant> <vector>)
set(kelvro_qt_headers <QtWidgets/QtWidgets> ${kelvro_std_headers})

# Windows and commands compute little: with sanitizers their build costs more than their run, but for
# fuzzers that run for hours.
set(kelvro_quick_build $<$<AND:$<BOOL:${KELVRO_SANITIZE}>,$<CONFIG:Debug>>:-O0>)

# Fuzzers follow where an input leads. In windows and tests, where no fuzzer comes, it costs a tenth of
# the build.
set(kelvro_followed $<$<BOOL:${KELVRO_FUZZ}>:-fsanitize=fuzzer-no-link>)

# kelvro_room(NAME [QT] [LINKS libraries...] [HEADERS headers...]): the library kelvro_NAME of all
# sources below NAME/, main.cpp excepted. QT runs moc and rcc over them. HEADERS are large ones that
# nearly every source reads: precompiled, they are read once.
function(kelvro_room name)
  cmake_parse_arguments(PARSE_ARGV 1 room "QT" "" "LINKS;HEADERS")
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${name}/*.cpp ${name}/*.h ${name}/*.qrc)
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  if(NOT sources)
    add_library(kelvro_${name} INTERFACE)
    target_link_libraries(kelvro_${name} INTERFACE kelvro_options ${room_LINKS})
    return()
  endif()
  add_library(kelvro_${name} STATIC ${sources})
  target_link_libraries(kelvro_${name} PUBLIC kelvro_options ${room_LINKS})
  if(name MATCHES "^(plot|ui|cli)$")
    target_compile_options(kelvro_${name} PRIVATE ${kelvro_quick_build})
  endif()
  if(NOT name MATCHES "^(plot|ui)$")
    target_compile_options(kelvro_${name} PRIVATE ${kelvro_followed})
  endif()
  if(room_QT)
    set_target_properties(kelvro_${name} PROPERTIES AUTOMOC ON AUTORCC ON
                                                      AUTOGEN_ORIGIN_DEPENDS OFF)
    # Reading Qt's headers is more than half of what compiling a window costs.
    list(APPEND room_HEADERS ${kelvro_qt_headers})
  endif()
  if(room_HEADERS)
    target_precompile_headers(kelvro_${name} PRIVATE ${room_HEADERS})
  endif()
endfunction()
