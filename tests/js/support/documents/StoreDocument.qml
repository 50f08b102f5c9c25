import QtQml 2.12
import "qrc:/js/Bdd.js" as Bdd

// A document with a store of its own. Everything goes in and out as JSON, which keeps numbers, texts and null apart.
QtObject {
    id: root

    property QtObject neighbour

    /// Calls an operation with a callback after its values: how often and with what the callback was called before the
    /// operation returned and after it, what was returned and what was thrown.
    function perform(operation, values, withCallback) {
        var call = { answers: [], late: 0, returnedNothing: true, thrown: "" };
        var running = true;
        var passed = JSON.parse(values);

        if (withCallback) {
            passed.push(function () {
                if (running) {
                    call.answers.push(Array.prototype.slice.call(arguments));
                } else {
                    call.late += 1;
                }
            });
        }
        try {
            call.returnedNothing = Bdd[operation].apply(Bdd, passed) === undefined;
        } catch (error) {
            call.thrown = error.message;
        }
        running = false;
        return JSON.stringify(call);
    }

    /// The value of some lines of script that see the store, or {thrown: message}.
    function evaluate(code) {
        try {
            return JSON.stringify(eval(code));
        } catch (error) {
            return JSON.stringify({ thrown: error.message });
        }
    }
}
