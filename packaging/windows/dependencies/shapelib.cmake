# Becomes the CMakeLists.txt of the shapelib sources, which have none of their own.
cmake_minimum_required(VERSION 3.25)
project(shapelib LANGUAGES C)
add_library(shp STATIC shpopen.c dbfopen.c safileio.c)
install(TARGETS shp ARCHIVE DESTINATION lib)
install(FILES shapefil.h DESTINATION include)
