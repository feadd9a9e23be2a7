# LibDeflate::LibDeflate. The static library where there is one: loading a shared one costs every
# start more than the few functions take room.
find_path(LibDeflate_INCLUDE_DIR libdeflate.h)
find_library(LibDeflate_LIBRARY NAMES libdeflate.a deflate)
mark_as_advanced(LibDeflate_INCLUDE_DIR LibDeflate_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(LibDeflate
    REQUIRED_VARS LibDeflate_LIBRARY LibDeflate_INCLUDE_DIR
    REASON_FAILURE_MESSAGE "install libdeflate-dev, or go without: -DTESKEL_WITH_LIBDEFLATE=OFF")

if(LibDeflate_FOUND AND NOT TARGET LibDeflate::LibDeflate)
    add_library(LibDeflate::LibDeflate UNKNOWN IMPORTED)
    set_target_properties(LibDeflate::LibDeflate PROPERTIES
        IMPORTED_LOCATION "${LibDeflate_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${LibDeflate_INCLUDE_DIR}")
endif()
