"""The program used at random beside a model of what it stores and shows."""
