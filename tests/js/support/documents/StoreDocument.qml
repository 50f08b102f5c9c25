import QtQml 2.12
import "qrc:/js/Bdd.js" as Bdd

// A document with its own store. Values are passed as JSON, which distinguishes numbers, strings and null.
QtObject {
    id: root

    property QtObject neighbour

    /// Calls an operation with its values and a callback. Returns the arguments of each call of the callback, before
    /// and after the return of the operation, its return value and its error.
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

    /// The value of a piece of script that has access to the store, or {thrown: message}.
    function evaluate(code) {
        try {
            return JSON.stringify(eval(code));
        } catch (error) {
            return JSON.stringify({ thrown: error.message });
        }
    }
}
