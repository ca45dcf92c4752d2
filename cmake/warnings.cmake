# The warnings and the sanitizers that everything of this project is built with.
add_library(ov_model_warnings INTERFACE)
target_compile_options(ov_model_warnings INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-Wold-style-cast> $<$<COMPILE_LANGUAGE:CXX>:-Woverloaded-virtual>
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wcast-qual
  -Wdouble-promotion -Wformat=2 -Wundef -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 sees overlaps in std::string operations that are none.
  target_compile_options(ov_model_warnings INTERFACE -Wno-restrict)
endif()
if(OV_MODEL_SANITIZE)
  target_compile_options(ov_model_warnings INTERFACE
    -fsanitize=${OV_MODEL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(ov_model_warnings INTERFACE -fsanitize=${OV_MODEL_SANITIZE})
endif()
