// Fills the result model of the search bar. Runs in the scope of the document that imports it: its `model` and `Bdd`.

/// Shows the patients whose name starts with the input, then those whose name contains it; nothing for "".
function filter(input) {
    model.clear();
    if (input === "") {
        return;
    }
    Bdd.select(input, function (found) {
        model.append(found.startsWith);
        model.append(found.contains);
    });
}
