# brv_add_extension: makes an extension's bundle. Filled in with the shell.
