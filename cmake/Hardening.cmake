# cmake -DREADELF=readelf -DPROGRAM=file -P Hardening.cmake
# Fails unless the program is position independent, has its tables read-only after the start, no executable stack, and
# calls the checks of the stack and of library functions.

function(require what text pattern)
  if(NOT text MATCHES "${pattern}")
    message(FATAL_ERROR "${PROGRAM}: ${what} is missing")
  endif()
endfunction()

foreach(part IN ITEMS file-header program-headers dynamic dyn-syms)
  execute_process(COMMAND "${READELF}" --wide --${part} "${PROGRAM}"
    OUTPUT_VARIABLE ${part} COMMAND_ERROR_IS_FATAL ANY)
endforeach()

require("position independence" "${file-header}" "Type: +DYN")
require("position independence" "${dynamic}" "FLAGS_1[^\n]* PIE")
require("a read-only relocation table" "${program-headers}" "GNU_RELRO")
require("binding at the start" "${dynamic}" "FLAGS_1[^\n]* NOW")
require("a stack that is no code" "${program-headers}" "GNU_STACK[^\n]* RW ")
require("the check of the stack" "${dyn-syms}" "__stack_chk_fail")
