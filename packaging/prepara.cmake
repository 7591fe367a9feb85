# What is done to the files of the package between their laying and their packing: programs without symbols, texts of the
# system's documentation compressed, and one date for all, so that the same sources make the same package.
set(root "${CPACK_TEMPORARY_DIRECTORY}/usr")

find_program(STRIP strip REQUIRED)
find_program(GZIP gzip REQUIRED)
find_program(TOUCH touch REQUIRED)

file(GLOB programs "${root}/bin/*")
execute_process(COMMAND "${STRIP}" --strip-unneeded --remove-section=.comment --remove-section=.note ${programs} COMMAND_ERROR_IS_FATAL ANY)

file(GLOB_RECURSE pages "${root}/share/man/*")
execute_process(COMMAND "${GZIP}" --best --no-name ${pages} "${root}/share/doc/tarvelo/changelog" COMMAND_ERROR_IS_FATAL ANY)

# Its folders are everybody's to look into, whatever its maker gives to his own.
file(CHMOD_RECURSE "${root}" DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

file(GLOB_RECURSE laid LIST_DIRECTORIES true "${root}" "${root}/*")
set(date "@$ENV{SOURCE_DATE_EPOCH}")
if(date STREQUAL "@")
  string(TIMESTAMP date "@%s")
endif()
execute_process(COMMAND "${TOUCH}" --no-dereference --date=${date} "${root}" ${laid} COMMAND_ERROR_IS_FATAL ANY)
