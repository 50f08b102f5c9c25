import QtQml 2.12
import QtQml.Models 2.12
import "qrc:/js/Bdd.js" as Bdd
import "qrc:/js/ListLogic.js" as ListLogic

// The environment that the list popup provides for its script: a model, a root, the header's box and a store.
QtObject {
    id: root

    property int number: -1
    property var printModel
    /// The rows that were shown when printModel was set.
    property int shownBeforePrintable: -1
    property bool headerTicked: checkboxAll.checked
    /// The root's signals in order, each with its arguments.
    property var raised: []

    property ListModel rows: ListModel { id: model }
    property QtObject header: QtObject {
        id: checkboxAll

        property bool checked
    }

    signal needRefresh()
    signal removedPatients(variant ids)

    function open() {
        Bdd.init();
    }

    function tickHeader(state) {
        checkboxAll.checked = state;
    }

    /// The result of ListLogic.operation(values...), or the error that it threw.
    function perform(operation, values) {
        try {
            ListLogic[operation].apply(ListLogic, JSON.parse(values));
        } catch (error) {
            return error.message;
        }
        return "";
    }

    /// Each row as "name" or "name, ticked".
    function shown() {
        var rows = [];
        var i;

        for (i = 0; i < model.count; ++i) {
            rows.push(model.get(i).name + (model.get(i).checked === true ? ", ticked" : ""));
        }
        return rows;
    }

    function row(index) {
        return JSON.stringify(model.get(index));
    }

    function printed() {
        return JSON.stringify(printModel);
    }

    onPrintModelChanged: shownBeforePrintable = model.count
    onNeedRefresh: raised.push("needRefresh, " + patientsLeft() + " left")
    onRemovedPatients: raised.push("removedPatients " + JSON.stringify(ids))

    function patientsLeft() {
        var left = -1;

        Bdd.getNumber(function (row) {
            left = row.count;
        });
        return left;
    }

    function takeRaised() {
        var taken = raised;

        raised = [];
        return taken;
    }
}
