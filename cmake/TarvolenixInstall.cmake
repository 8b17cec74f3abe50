# Where things are installed below the prefix.

option(TARVOLENIX_INSTALLED "Install for everybody who uses the machine, as a package does" OFF)

# Without it, all lies together in a program folder. The program finds either by itself.
if(TARVOLENIX_INSTALLED)
  include(GNUInstallDirs)
  set(TARVOLENIX_PROGRAMS games)
  set(TARVOLENIX_SHARED share/tarvolenix)
  set(TARVOLENIX_MODULES "${CMAKE_INSTALL_LIBDIR}/tarvolenix")
  set(TARVOLENIX_MODULES_BUILT_IN "${CMAKE_INSTALL_FULL_LIBDIR}/tarvolenix/")
else()
  set(TARVOLENIX_PROGRAMS .)
  set(TARVOLENIX_SHARED .)
  set(TARVOLENIX_MODULES .)
  set(TARVOLENIX_MODULES_BUILT_IN "${CMAKE_BINARY_DIR}/src/")
endif()

# tarvolenix_install_missing(FOLDER FILES...): into a folder of the shared ones in which the player may
# have changed a file, or have one of his own of that name: what is there stays.
function(tarvolenix_install_missing folder)
  foreach(file IN LISTS ARGN)
    cmake_path(GET file FILENAME name)
    install(CODE "
      set(folder \"\${CMAKE_INSTALL_PREFIX}/${TARVOLENIX_SHARED}/${folder}\")
      if(NOT EXISTS \"\$ENV{DESTDIR}\${folder}/${name}\")
        file(INSTALL \"${file}\" DESTINATION \"\${folder}\")
      endif()")
  endforeach()
endfunction()
