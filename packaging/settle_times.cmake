# Called by cpack between installing into its own folder and packing that.
execute_process(COMMAND find ${CPACK_TEMPORARY_DIRECTORY} -exec touch -h -d @${CPACK_BRANTLOW_SECONDS} {} +
  COMMAND_ERROR_IS_FATAL ANY)
