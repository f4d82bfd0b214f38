# The settings file dialogs are tested through the application's Import and Export
# commands, in tests/app.
