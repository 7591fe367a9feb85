# What a program carries in its own file on Windows: its icon, its version data, and what it asks of the system.
enable_language(RC)

# What the system shows of a program that is handed out.
set(TARVELO_DESCRIPTION_tarvelo "Tarvelo")
set(TARVELO_DESCRIPTION_tarvelo-copia "Cópias de segurança do Tarvelo")
set(TARVELO_DESCRIPTION_tarvelo-confere "Conferência dos dados do Tarvelo")
set(TARVELO_DESCRIPTION_tarvelo-importa "Importação dos dados antigos para o Tarvelo")
set(TARVELO_DESCRIPTION_cep "Banco de CEPs do Tarvelo")

set(TARVELO_ICON "${CMAKE_BINARY_DIR}/tarvelo.ico")
add_custom_command(
  OUTPUT "${TARVELO_ICON}"
  COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen $<TARGET_FILE:host::figuras> "${CMAKE_SOURCE_DIR}/data/icones/tarvelo.svg" "${TARVELO_ICON}" 16,20,24,32,40,48,64,256
  DEPENDS host::figuras "${CMAKE_SOURCE_DIR}/data/icones/tarvelo.svg"
  COMMENT "Drawing the icon"
  VERBATIM)
add_custom_target(icone_dos_programas DEPENDS "${TARVELO_ICON}")

# tarvelo_windows_resource(TARGET)
function(tarvelo_windows_resource target)
  set(description "${TARVELO_DESCRIPTION_${target}}")
  if(NOT description)
    message(FATAL_ERROR "cmake/Windows.cmake does not say what ${target} is.")
  endif()
  set(name ${target})
  set(resource "${CMAKE_CURRENT_BINARY_DIR}/${target}.rc")
  configure_file("${CMAKE_SOURCE_DIR}/packaging/windows/programa.rc.in" "${resource}" @ONLY)
  set_source_files_properties("${resource}" PROPERTIES
    OBJECT_DEPENDS "${TARVELO_ICON};${CMAKE_SOURCE_DIR}/packaging/windows/programa.manifest")
  target_sources(${target} PRIVATE "${resource}")
  add_dependencies(${target} icone_dos_programas)
endfunction()
