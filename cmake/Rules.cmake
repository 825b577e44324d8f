# What every target of the project obeys: warnings are errors, Qt's headers come precompiled, ccache where present.

find_program(CCACHE ccache)
if(CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros
        CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} ${CCACHE})
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
add_compile_definitions(QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_KEYWORDS)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-fpch-preprocess) # ccache can then reuse objects built with a precompiled header
else()
    add_compile_options(-Xclang -fno-pch-timestamp) # the same for clang
endif()

if(ZABLAGER_SANITIZE)
    set(SANITIZER_FLAGS -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_compile_options(${SANITIZER_FLAGS})
    add_link_options(-fsanitize=address,undefined)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        add_compile_options(-fsanitize=fuzzer-no-link) # the fuzzer finds its way by the branches taken in every room
    endif()
endif()

# Gives a room's target the precompiled Qt headers.
function(precompile_qt target)
    if(ZABLAGER_PRECOMPILE)
        target_precompile_headers(${target} PRIVATE <QString> <QDate> <QDateTime> <QByteArray> <QList> <memory> <vector>)
    endif()
endfunction()
