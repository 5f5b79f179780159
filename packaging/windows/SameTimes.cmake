# Read by CPack when a package's files lie ready: files of the same content give the same package, whenever it is made.
if(DEFINED ENV{SOURCE_DATE_EPOCH})
  execute_process(COMMAND find ${CPACK_TEMPORARY_DIRECTORY} -exec touch --no-dereference --date=@$ENV{SOURCE_DATE_EPOCH}
                          {} + COMMAND_ERROR_IS_FATAL ANY)
endif()
