# kolm_add_type_library(<target> <sources> <headers> <output>)
#
# <target> makes the type library <output> from the public headers in the folder <headers>. <sources> holds what the
# headers do not say, and the scripts.

include_guard(GLOBAL)

find_package(Python3 REQUIRED COMPONENTS Interpreter)
find_program(KOLM_IDL_COMPILER x86_64-w64-mingw32-widl DOC "Compiler of type libraries")
if(NOT KOLM_IDL_COMPILER)
    message(FATAL_ERROR "No x86_64-w64-mingw32-widl: run cmake/setup.sh")
endif()

function(kolm_add_type_library target sources headers output)
    cmake_path(GET output STEM name)
    set(folder "${CMAKE_CURRENT_BINARY_DIR}/${target}")
    file(MAKE_DIRECTORY "${folder}")
    file(GLOB inputs CONFIGURE_DEPENDS "${sources}/*" "${headers}/*.h")
    # The compiler writes a reference to the system's stdole2.tlb, and wants to see one.
    add_custom_command(
        OUTPUT "${output}"
        BYPRODUCTS "${folder}/${name}.idl"
        COMMAND Python3::Interpreter -B "${sources}/make_idl.py"
            "${headers}" "${sources}/structures.idl" "${folder}/${name}.idl"
        COMMAND "${KOLM_IDL_COMPILER}" -t --win64 -o stdole2.tlb "${sources}/stdole2.idl"
        COMMAND "${KOLM_IDL_COMPILER}" -t --win64 -I "${sources}" -L . -o unfinished.tlb "${name}.idl"
        COMMAND Python3::Interpreter -B "${sources}/finish_tlb.py" unfinished.tlb "${output}"
        WORKING_DIRECTORY "${folder}"
        DEPENDS ${inputs}
        COMMENT "Making the type library ${name}.tlb"
        VERBATIM)
    add_custom_target(${target} DEPENDS "${output}")
endfunction()
