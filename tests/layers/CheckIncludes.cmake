# What each layer may include of the project: its own headers and those of the layers named here. The compiler already
# refuses a header of a layer that is not linked; this also refuses the way round it, and links that point upwards.

set(may_see_platform "platform")
set(may_see_shelf "shelf;platform")
set(may_see_panel "panel;shelf;platform")
set(may_see_triggers "triggers;platform")
set(may_see_ui/drag "ui/drag;shelf;platform")
set(may_see_ui/drop "ui/drop;shelf;platform")
set(may_see_ui "ui;ui/drag;ui/drop;panel;shelf;platform")
set(may_see_platform/linux "platform/linux;platform")
set(may_see_helper "helper;platform/linux;platform")
set(may_see_decode "decode;helper;platform/linux;platform")
set(may_see_lookup "lookup;helper;platform/linux;platform")
set(may_see_platform/linux/desktop "platform/linux/desktop;platform/linux/x11;platform")
set(may_see_platform/linux/pictures "platform/linux/pictures;platform/linux;platform;decode")
set(may_see_platform/linux/screenshots "platform/linux/screenshots;platform/linux;platform")
set(may_see_platform/linux/web "platform/linux/web;platform/linux;platform;lookup")
set(may_see_platform/linux/x11 "platform/linux/x11;platform/linux/desktop;platform")

set(display_headers "xcb/|X11/|wayland|QtGui/private")
set(may_name_display_servers "platform/linux/x11")
set(checked 0)

# One folder a line, so that a new one is one more line.
set(layers
    platform
    shelf
    panel
    triggers
    ui
    ui/drag
    ui/drop
    decode
    helper
    lookup
    platform/linux
    platform/linux/desktop
    platform/linux/pictures
    platform/linux/screenshots
    platform/linux/web
    platform/linux/x11)

foreach(layer IN LISTS layers)
    file(GLOB files "${SOURCE_FOLDER}/${layer}/*.h" "${SOURCE_FOLDER}/${layer}/*.cpp")
    foreach(file IN LISTS files)
        file(STRINGS "${file}" includes REGEX "^#include ")
        foreach(include IN LISTS includes)
            if(include MATCHES "<(${display_headers})" AND NOT layer STREQUAL may_name_display_servers)
                message(FATAL_ERROR "${file} names a display server: ${include}")
            endif()
            if(NOT include MATCHES "^#include \"([^\"]+)\"" OR include MATCHES "\\.moc\"")
                continue()
            endif()
            set(header "${CMAKE_MATCH_1}")
            set(found FALSE)
            foreach(visible IN LISTS may_see_${layer})
                if(EXISTS "${SOURCE_FOLDER}/${visible}/${header}")
                    set(found TRUE)
                endif()
            endforeach()
            if(NOT found OR header MATCHES "/")
                message(FATAL_ERROR "${file} includes ${header}, which ${layer} may not see")
            endif()
            math(EXPR checked "${checked} + 1")
        endforeach()
    endforeach()
endforeach()

if(checked LESS 50)
    message(FATAL_ERROR "only ${checked} includes were found to check")
endif()
message(STATUS "${checked} includes point downwards")
