# Stands in for Qt's module Svg where its source cannot be had (scripts/windows): what the program asks of it, over PNG
# pictures that were drawn from the SVG files and bear their names.
add_library(tremlo_svg_stand_in STATIC
  ${CMAKE_CURRENT_LIST_DIR}/PngRenderer.cpp ${CMAKE_CURRENT_LIST_DIR}/PngRenderer.h
  ${CMAKE_CURRENT_LIST_DIR}/SvgWriter.cpp ${CMAKE_CURRENT_LIST_DIR}/SvgWriter.h)
target_include_directories(tremlo_svg_stand_in PUBLIC ${CMAKE_CURRENT_LIST_DIR}/include PRIVATE ${CMAKE_CURRENT_LIST_DIR})
target_compile_features(tremlo_svg_stand_in PUBLIC cxx_std_20)
target_link_libraries(tremlo_svg_stand_in PUBLIC Qt6::Gui)
add_library(Qt6::Svg ALIAS tremlo_svg_stand_in)
set(Qt6Svg_FOUND TRUE)
