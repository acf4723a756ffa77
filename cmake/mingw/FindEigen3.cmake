# A folder of its own, with nothing of Linux beside the headers.
if(NOT TARGET Eigen3::Eigen)
  if(NOT EXISTS /usr/include/eigen3/Eigen)
    message(FATAL_ERROR "/usr/include/eigen3 is not installed")
  endif()
  add_library(Eigen3::Eigen INTERFACE IMPORTED)
  target_include_directories(Eigen3::Eigen INTERFACE /usr/include/eigen3)
endif()
set(Eigen3_FOUND TRUE)
