# The Qt that the tree is built with: TLXCORE_QT_MAJOR decides. Targets link ${TLX_QT}::Core; what is installed is named
# ${TLX_NAME}, so that the builds of both can lie side by side.
if(TLXCORE_QT_MAJOR EQUAL 5)
    set(TLX_QT Qt5)
    set(TLX_QT_MINIMUM 5.15)
    set(TLX_QT_MODULES Core Network)
    set(TLX_NAME tlxCore)
elseif(TLXCORE_QT_MAJOR EQUAL 6)
    set(TLX_QT Qt6)
    set(TLX_QT_MINIMUM 6.4)
    set(TLX_QT_MODULES Core Network Core5Compat) # Core5Compat has QRegExp
    set(TLX_NAME tlxCoreQt6)
else()
    message(FATAL_ERROR "TLXCORE_QT_MAJOR is 5 or 6, not \"${TLXCORE_QT_MAJOR}\"")
endif()

# What is found here is made visible to a surrounding project, too, which need not look for Qt by itself.
foreach(module IN LISTS TLX_QT_MODULES)
    if(NOT TARGET ${TLX_QT}::${module})
        list(APPEND found_here ${TLX_QT}::${module})
    endif()
endforeach()
find_package(${TLX_QT} ${TLX_QT_MINIMUM} REQUIRED COMPONENTS ${TLX_QT_MODULES})
if(found_here AND NOT TLXCORE_IS_TOP)
    set_target_properties(${found_here} PROPERTIES IMPORTED_GLOBAL ON)
endif()
list(TRANSFORM TLX_QT_MODULES PREPEND "${TLX_QT}::" OUTPUT_VARIABLE TLX_QT_LIBRARIES)
