# Writes the settings for all users of one copy of the programs below the folder: where its definitions are.
function(quorvel_write_settings folder definitions)
  set(file "${folder}/Kelmsor/Quorvel.conf")
  string(REPLACE "%" "%25" definitions "${definitions}")  # as the programs read it
  message(STATUS "Settings: ${file}")
  file(WRITE "${file}" "[Software\\Kelmsor\\Quorvel\\Definitions]\nDefaultFile=${definitions}\n")
endfunction()
